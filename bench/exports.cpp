// Comparing two exports with the program without windows, from its start to its end, beside the registry editor's
// import of one.
//
// usage: tavimor-bench-exports TAVIMORCMD IMPORT...    IMPORT: a command that prints the seconds an import takes of the
//                                                      file, by its name on Wine, that is put behind it
#include <sys/wait.h>

#include <filesystem>
#include <fstream>

#include "bench/Rows.h"

namespace {

constexpr int Zones = 1000, Settings = 50, Runs = 9;

// In one of ten zones a setting is `changed`.
void writeExport(const std::filesystem::path& file, int changed) {
    std::ofstream out(file, std::ios::binary);
    out << "REGEDIT4\r\n";
    for (int zone = 0; zone < Zones; ++zone) {
        out << "\r\n[HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion\\Internet Settings\\Zones\\"
            << zone << "]\r\n\"DisplayName\"=\"Zone " << zone << "\"\r\n\"Icon\"=\"shell32.dll#" << 1 + zone % 40
            << "\"\r\n";
        for (int setting = 2; setting < Settings; ++setting) {
            char line[32];
            std::snprintf(line, sizeof line, "\"%d\"=dword:%08x\r\n", 1200 + setting,
                          setting == 5 && zone % 10 == 0 ? changed : setting);
            out << line;
        }
    }
}

// Runs it, and gives what it prints and its exit code.
std::pair<std::string, int> run(const std::string& command) {
    std::string printed;
    FILE* const pipe = popen(command.c_str(), "r");
    if (!pipe) bench::fail(command + ": cannot be started");
    for (int c; (c = std::fgetc(pipe)) != EOF;) printed.push_back(static_cast<char>(c));
    const int status = pclose(pipe);
    return {printed, WIFEXITED(status) ? WEXITSTATUS(status) : -1};
}

}  // namespace

int main(int count, char** arguments) {
    if (count < 3) bench::fail("usage: tavimor-bench-exports TAVIMORCMD IMPORT...");
    const std::filesystem::path folder = std::filesystem::temp_directory_path() / "tavimor-bench-exports";
    std::filesystem::create_directories(folder);
    const std::filesystem::path before = folder / "before.reg", after = folder / "after.reg";
    writeExport(before, 0);
    writeExport(after, 77);

    std::string onWine = "Z:" + before.string();
    std::replace(onWine.begin(), onWine.end(), '/', '\\');
    std::string import;
    for (int i = 2; i < count; ++i) import += std::string(arguments[i]) + " ";
    import += "'" + onWine + "'";
    const std::string diff = std::string(arguments[1]) + " diff file:" + before.string() + " file:" + after.string();

    const bench::Compared compared = bench::compare(
        Runs,
        [&](int) {
            std::pair<std::string, int> ended;
            const double time = bench::timeOf([&] { ended = run(diff); });
            const auto lines = std::count(ended.first.begin(), ended.first.end(), '\n');
            // Two for each zone, and an empty one between them.
            if (ended.second != 1 || lines != Zones / 10 * 3 - 1) bench::fail(diff + ": does not find what differs");
            return time;
        },
        [&](int) {
            const auto [printed, code] = run(import);
            const double time = std::atof(printed.c_str());
            if (code != 0 || time <= 0) bench::fail(import + ": " + printed);
            return time;
        });
    std::filesystem::remove_all(folder);
    std::printf("comparing two exports of %d zones with %d settings: %.3f s, importing one %.3f s\n", Zones, Settings,
                compared.ours, compared.others);
    bench::row("comparing two exports of 1,000 zones, of the registry editor's time for importing one", compared.ratio,
               "", bench::Limit::Below, 0.1);
    return 0;
}
