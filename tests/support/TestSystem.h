// The system that a test runs on: in memory natively, the real one as a Windows program, with the same interface.
//
// Each begins clean: no zones, sites, identities, templates, settings tree, browser or settings of the program, and an
// empty program folder. What a test needs it seeds or sets. The conveniences go past the watched services: they are
// neither counted nor made to fail.
#pragma once

#include <memory>
#include <optional>

#include "simulated/Machine.h"
#include "support/IconBytes.h"
#include "support/RealSystem.h"
#include "support/SampleData.h"
#include "support/ScriptedDesktop.h"

// The machine in memory has switches that a real system does not have. On a real one only its folder, its clock and its
// list of started programs are used.
class TestSystem : public simulated::Machine {
public:
    TestSystem();
    ~TestSystem();

    bool inMemory() const { return !real_; }

private:
    std::unique_ptr<RealSystem> real_;  // is told of the folder, the clock and the launcher
    platform::Platform bare_;           // without the script's desktop

public:
    ScriptedDesktop desktop{bare_.desktop};
    simulated::Watch watch;  // of them all together
    platform::Platform& platform() { return platform_; }

    // --- the registry, by paths such as "HKEY_CURRENT_USER\\Software\\..."; keys are made as needed

    void makeKey(const std::string& path);
    void setText(const std::string& path, const std::string& name, std::string_view text) {
        import({sample::text(path, name, text)});
    }
    void setDword(const std::string& path, const std::string& name, std::uint32_t number) {
        import({sample::dword(path, name, number)});
    }
    void setBinary(const std::string& path, const std::string& name, const platform::Bytes& data) {
        import({{ path, name, platform::RegBinary, data }});
    }
    void set(const sample::Entry& entry) { import({entry}); }
    void import(const std::vector<sample::Entry>& entries);
    void deleteTree(const std::string& path);
    void deleteValue(const std::string& path, const std::string& name);

    bool exists(const std::string& path);
    // In the system's order.
    std::vector<std::string> keys(const std::string& path) { return names(path, true); }
    std::vector<std::string> values(const std::string& path) { return names(path, false); }
    std::optional<sample::Entry> value(const std::string& path, const std::string& name);
    std::optional<std::string> text(const std::string& path, const std::string& name);  // without its zero
    std::optional<std::uint32_t> dword(const std::string& path, const std::string& name);
    // A text, "#" and a number, or "hex" and other data's bytes.
    static std::string shown(const sample::Entry& entry);
    std::optional<std::string> shown(const std::string& path, const std::string& name);
    // What is below a key, keys and values: {{"", ""}, {"|name", "#3"}, {"key", ""}, {"key|name", "text"}}.
    using Tree = std::map<std::string, std::string>;
    Tree tree(const std::string& path);

    // --- files and program files

    std::string programFolder() { return system.folder; }
    std::string path(const std::string& name) { return system.folder + "\\" + name; }  // in the program folder
    void writeFile(const std::string& name, std::string_view bytes);                   // in the program folder
    std::optional<std::string> readFile(const std::string& name);
    std::vector<std::string> filesIn(const std::string& folder, const std::string& wildcard = "*");
    // Puts a program file into the program folder, where it is found by its full path, which this tells, and by its
    // name alone.
    std::string addProgram(const std::string& name, const simulated::ProgramFile& program);

    // --- what a machine has

    void seedZones() { import(sample::builtInZones()); }  // the five built-in ones
    void seedBrowser();  // what sandbox/browser.reg holds, two more zones and the browser's version among it
    // Program files with the icons that the built-in zones name, and the program's own: icons of 16, 32 and 48 pixels.
    void seedModules();
    void seedAll();
    // As the browser's library and the registry tell it: "5.00.2614.3500". "": no browser.
    void setBrowserVersion(const std::string& version);
    // Ends the programs that were started; a real system's are waited for.
    void endPrograms();

private:
    void reset();
    class Key;
    std::vector<std::string> names(const std::string& path, bool ofKeys);

    platform::Platform platform_{bare_.registry, bare_.files,   bare_.modules,  bare_.memory,
                                 bare_.system,   bare_.browser, bare_.launcher, desktop};
};

// A test that counts or refuses calls, or sets what only a system in memory lets itself be told.
#ifdef _WIN32
#define IN_MEMORY_TEST_F(fixture, name) TEST_F(fixture, DISABLED_##name)
#else
#define IN_MEMORY_TEST_F TEST_F
#endif
