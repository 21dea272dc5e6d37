#include "app/frmMain.h"
#include "bench/Windows.h"

namespace bench {

// Filled in the window as the user sees it, until it stands.
void zoneList(Machine& machine) {
    constexpr int Zones = 1000, Settings = 8, Runs = 9;
    seedZones(1, Settings);
    frmMain window(machine.program);
    window.load();
    window.show();
    machine.settle();
    const auto fill = [&](int zones) {
        seedZones(zones, Settings);
        return timeOf([&] {
            window.RebuildList();
            machine.settle();
        });
    };
    const Compared filled = compare(
        Runs, [&](int) { return fill(2 * Zones); }, [&](int) { return fill(Zones); });
    std::printf("filling the list: %d zones %.3f s, %d zones %.3f s\n", 2 * Zones, filled.ours, Zones, filled.others);
    row("filling the window's list with 2,000 zones, of the time for 1,000", filled.ratio, "", Limit::AtMost, 2.2);
    window.unload();
    machine.settle();
}

}  // namespace bench
