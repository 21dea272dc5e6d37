// How fast what does not depend on a system is, over a system in memory; and how often a backup asks that system.
#include <benchmark/benchmark.h>

#include <cstring>
#include <map>
#include <sstream>

#include "app/Application.h"
#include "backup/BackupFile.h"
#include "backup/ExportFile.h"
#include "backup/ZoneFile.h"
#include "bench/Rows.h"
#include "forms/ZoneList.h"
#include "support/TestSystem.h"
#include "ui/Form.h"
#include "util/clsStrings.h"
#include "util/trace.h"
#include "zones/zones.h"

namespace {

std::string zoneFile(std::int64_t lines) {
    std::string bytes = "Desc=measured\r\n";
    for (std::int64_t line = 0; line < lines; ++line)
        bytes += "inetcpl.cpl#00004480;Zone " + std::to_string(line) +
                 ";Sites that are used for measuring;65536;65536;69632;67\r\n";
    return bytes;
}

void parse(benchmark::State& state) {
    const std::string bytes = zoneFile(state.range(0));
    clsStrings strings;
    backup::ZoneFields fields;
    for (auto _ : state) {
        const auto lines = backup::splitLines(bytes);
        for (std::size_t line = 1; line < lines.size(); ++line) backup::readZoneLine(strings, lines[line], fields);
        benchmark::DoNotOptimize(fields);
    }
}

// The same lines and fields, read with the standard library's streams.
void streamed(benchmark::State& state) {
    const std::string bytes = zoneFile(state.range(0));
    backup::ZoneFields fields;
    for (auto _ : state) {
        std::istringstream file(bytes);
        std::string line;
        while (std::getline(file, line)) {
            std::istringstream parts(line);
            for (std::string& field : fields) std::getline(parts, field, ';');
        }
        benchmark::DoNotOptimize(fields);
    }
}

void trace(benchmark::State& state) {
    for (auto _ : state) {
        basErrors::TracePush("bench.trace");
        basErrors::TracePop();
    }
}

std::vector<const char*> bareStack;
[[gnu::noinline]] void barePush(const char* name) {
    bareStack.push_back(name);
}
[[gnu::noinline]] void barePop() {
    bareStack.pop_back();
}

void bareTrace(benchmark::State& state) {
    for (auto _ : state) {
        barePush("bench.trace");
        barePop();
    }
}

void tokenizer(benchmark::State& state) {
    const auto lines = backup::splitLines(zoneFile(1000));
    const std::string delimiter = ";";
    clsStrings strings;
    for (auto _ : state)
        for (const std::string& line : lines) benchmark::DoNotOptimize(strings.Initialise(line, delimiter));
}

// What must be done at the least: find the delimiters and keep where they are.
void bareSplit(benchmark::State& state) {
    const auto lines = backup::splitLines(zoneFile(1000));
    std::vector<std::int32_t> boundaries;
    for (auto _ : state) {
        for (const std::string& line : lines) {
            boundaries.clear();
            const char *at = line.data(), *const end = at + line.size();
            while (const void* found = std::memchr(at, ';', static_cast<std::size_t>(end - at))) {
                at = static_cast<const char*>(found) + 1;
                boundaries.push_back(static_cast<std::int32_t>(at - line.data()));
            }
            benchmark::DoNotOptimize(boundaries.data());
        }
    }
}

void seedZones(TestSystem& system, std::int64_t zones, std::uint32_t settings) {
    for (int zone = 0; zone < zones; ++zone) {
        const std::string key = std::string(zones::ZonesKey) + "\\" + std::to_string(zone);
        system.setText(key, "DisplayName", "Zone " + std::to_string(zone));
        system.setText(key, "Icon", "inetcpl.cpl#00004480");
        for (std::uint32_t setting = 2; setting < settings; ++setting)
            system.setDword(key, std::to_string(1200 + setting), setting);
    }
}

void zoneList(benchmark::State& state) {
    TestSystem system;
    system.seedModules();
    seedZones(system, state.range(0), 2);
    app::Application program(system.platform());
    ui::Form form(system.desktop, ui::Form::Kind::Main, "form", "", {6000, 6000});
    ui::ListView list(form, "list", {0, 0, 6000, 6000}, ui::ListView::View::Icon, ui::ListView::Clicks::OnSelect);
    ui::ImageList images(form, "images", 32);
    ui::Image dummy(form, "dummy", {0, 0, 480, 480}), holder(form, "holder", {0, 0, 480, 480});
    const forms::ZoneListControls controls{list, images, dummy, holder};
    for (auto _ : state) {
        system.registry.watch.reset();
        system.modules.watch.reset();
        forms::clearZoneList(controls);
        basMain::IconCache icons(program.platform);
        forms::fillZoneList(program, controls, icons);
    }
    if (list.count() != state.range(0)) state.SkipWithError("the list is not full");
    state.counters["list calls"] = static_cast<double>(system.registry.watch.calls()) / list.count();
    state.counters["files opened"] = system.modules.watch.calls("LoadLibraryExA");
}

void exportCalls(benchmark::State& state) {
    constexpr int Zones = 1000, Settings = 50;
    TestSystem system;
    seedZones(system, Zones, Settings);
    app::Application program(system.platform());
    int run = 0;
    for (auto _ : state) {
        system.registry.watch.reset();
        system.files.watch.reset();
        backup::writeExport(program, std::to_string(++run), backup::listZones(program.registry), [] {});
    }
    state.counters["registry calls"] = (system.registry.watch.calls() - 1.0 * Zones * Settings) / Zones;
    state.counters["writes"] = static_cast<double>(system.files.watch.calls("append")) / Zones;
}

constexpr int Repetitions = 15;

// Keeps every repetition's processor time, for medians, and shows the usual table.
class Results : public benchmark::ConsoleReporter {
public:
    Results() : ConsoleReporter(OO_Tabular) {}
    void ReportRuns(const std::vector<Run>& runs) override {
        std::vector<Run> medians;
        for (const Run& run : runs) {
            if (run.error_occurred) failed = true;
            if (run.aggregate_name == "median") medians.push_back(run);
            if (run.run_type == Run::RT_Iteration) keep(run);
        }
        if (!medians.empty()) ConsoleReporter::ReportRuns(medians);
    }
    double seconds(const std::string& name) const { return bench::median(times_.at(name)); }

    std::map<std::string, double> counters;
    bool failed = false;

private:
    void keep(const Run& run) {
        const std::string &name = run.run_name.function_name, &arguments = run.run_name.args;
        times_[arguments.empty() ? name : name + "/" + arguments].push_back(run.cpu_accumulated_time /
                                                                            static_cast<double>(run.iterations));
        for (const auto& [counted, counter] : run.counters) counters[counted] = counter.value;
    }

    std::map<std::string, std::vector<double>> times_;
};

}  // namespace

int main(int count, char** arguments) {
    benchmark::Initialize(&count, arguments);
    const auto add = [](const char* name, void (*measured)(benchmark::State&)) {
        return benchmark::RegisterBenchmark(name, measured)
            ->Repetitions(Repetitions)
            ->MinTime(0.1)
            ->Unit(benchmark::kMicrosecond);
    };
    add("parse", parse)->Arg(10000)->Arg(20000);
    add("streamed", streamed)->Arg(10000);
    add("trace", trace)->Unit(benchmark::kNanosecond);
    add("bareTrace", bareTrace)->Unit(benchmark::kNanosecond);
    add("tokenizer", tokenizer);
    add("bareSplit", bareSplit);
    add("zoneList", zoneList)->Arg(1000)->Arg(2000);
    add("exportCalls", exportCalls);

    Results results;
    benchmark::RunSpecifiedBenchmarks(&results);
    if (results.failed) return 1;

    using bench::Limit;
    using bench::row;
    const auto of = [&](const char* name) { return results.seconds(name); };
    row("reading a zone backup of 10,000 lines, of the time with streams", of("parse/10000") / of("streamed/10000"), "",
        Limit::AtMost, 2);
    row("reading one of 20,000 lines, of the time for 10,000", of("parse/20000") / of("parse/10000"), "", Limit::AtMost,
        2.2);
    row("a procedure's name put on the trace and taken off, of the time for a bare stack",
        of("trace") / of("bareTrace"), "", Limit::AtMost, 1.5);
    row("the tokenizer, of a bare split's time", of("tokenizer") / of("bareSplit"), "", Limit::AtMost, 4);
    row("filling a list with 2,000 zones, of the time for 1,000", of("zoneList/2000") / of("zoneList/1000"), "",
        Limit::AtMost, 2.2);
    row("registry calls of filling it for each zone", results.counters.at("list calls"), "", Limit::AtMost, 5.1);
    row("program files that it opens for zones with one icon", results.counters.at("files opened"), "", Limit::AtMost,
        1);
    row("registry calls of an export for each zone, beside one for each value", results.counters.at("registry calls"),
        "", Limit::AtMost, 16);
    row("file writes of an export for each zone", results.counters.at("writes"), "", Limit::AtMost, 1);
    return 0;
}
