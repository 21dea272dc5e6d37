#include "registry/clsRegistry.h"

#include <random>

#include "support/Core.h"

namespace {

using namespace std::string_literals;

const std::string Upper = "\\HKEY_CURRENT_USER\\SOFTWARE\\TAVIMOR TESTS";

class clsRegistry_ : public testing::Test, protected Core {
protected:
    void goTo(const std::string& path) {
        registry.cD("\\");
        registry.cD(path);
    }
};

TEST_F(clsRegistry_, MovesAsInADirectoryTree) {
    system.makeKey(TestsKey + "\\Sub\\Leaf");
    system.makeKey("HKEY_LOCAL_MACHINE\\Software\\Microsoft\\Windows\\CurrentVersion\\Internet Settings\\SO");
    const struct {
        std::vector<const char*> moves;
        std::string key;
    } cases[] = {
        {{"HKEY_CURRENT_USER\\Software"}, "\\HKEY_CURRENT_USER\\SOFTWARE"},
        {{"  \\hkey_current_user\\software\\ "}, "\\HKEY_CURRENT_USER\\SOFTWARE"},
        {{"HKEY_CURRENT_USER"}, "\\HKEY_CURRENT_USER"},
        {{"HKEY_CURRENT_USER", "software", "Tavimor Tests", "sub\\leaf", "."}, Upper + "\\SUB\\LEAF"},
        {{"HKEY_CURRENT_USER\\Software\\Tavimor Tests\\Sub", ".."}, Upper},
        {{"HKEY_CURRENT_USER\\Software", "\\HKEY_LOCAL_MACHINE\\Software"}, "\\HKEY_LOCAL_MACHINE\\SOFTWARE"},
        {{"HKEY_CURRENT_USER", ".."}, ""},
        {{"HKEY_CURRENT_USER\\Software", "\\", "\\"}, ""},
    };
    for (const auto& c : cases) {
        registry.cD("\\");
        for (const char* move : c.moves) registry.cD(move);
        EXPECT_EQ(registry.CurrentKey(), c.key);
        EXPECT_LE(system.registry.openHandles(), 1u) << c.key;
        EXPECT_TRUE(registry.HasKeys() || c.key.ends_with("LEAF")) << c.key;
    }
}

TEST_F(clsRegistry_, TheTopListsTheRootsAndAKeyItsSubkeysAsTheyAreSpelled) {
    const std::vector<std::string> roots{"HKEY_CLASSES_ROOT", "HKEY_CURRENT_USER", "HKEY_LOCAL_MACHINE",
                                         "HKEY_USERS",        "HKEY_DYN_DATA",     "HKEY_CURRENT_CONFIG"};
    EXPECT_EQ(registry.DirKey(), roots);
    system.makeKey(TestsKey);
    goTo(TestsKey);
    EXPECT_EQ(registry.DirKey(), std::nullopt);
    EXPECT_FALSE(registry.HasKeys());
    for (const std::string& name : {"Beta"s, "alpha"s, std::string(255, 'k')}) registry.MakeKey(name);
    EXPECT_EQ(registry.DirKey(), system.keys(TestsKey));
    EXPECT_EQ(registry.DirKey()->size(), 3u);
}

TEST_F(clsRegistry_, AfterAFailedMoveEverythingIsMissingUntilTheNextAbsoluteMove) {
    system.setText(TestsKey, "Name", "value");
    for (const std::string wanted : {"Nowhere", "\\HKEY_CURRENT_USER\\Nowhere"}) {
        goTo(TestsKey);
        registry.cD(wanted);
        EXPECT_TRUE(registry.CurrentKey().ends_with("NOWHERE"));
        EXPECT_EQ(registry.ValueOf("Name"), std::nullopt);
        EXPECT_EQ(registry.DirKey(), std::nullopt);
        EXPECT_EQ(registry.DirValue(), std::nullopt);
        registry.MakeKey("Made");
        registry.ValueOf("Name", ValueType::String, "changed"s);
        registry.DeleteValue("Name");
        EXPECT_EQ(system.registry.openHandles(), 0u);
        registry.cD(Upper);
        ASSERT_TRUE(registry.ValueOf("Name"));
        EXPECT_EQ(registry.ValueOf("Name")->text, "value");
        EXPECT_EQ(system.keys(TestsKey).size(), 0u);
    }
}

TEST_F(clsRegistry_, ErrorsOfTheSessionsOwnMakingAreShown) {
    const struct {
        int number;
        std::uint32_t raised;
        const char *shown, *source, *description;
    } cases[] = {
        {1, 0x80040001, "-2147221503", "TVMRRegistry", "No current Key."},
        {2, 0x80040002, "-2147221502", "TVMRRegistry", "Invalid Key root."},
        {3, 0x80040003, "-2147221501", "TVMRRegistry [Let ValueOf]", "Type passed doesn't match Value passed."},
        {4, 0x80040004, "-2147221500", "TVMRRegistry [Let ValueOf]",
         "Type passed doesn't exist. Use STRING, DWORD or BINARY."},
        {7, 0x800400FF, "-2147221249", "TVMRRegistry", "Undefined error number : 16"},
        {0, 0x800400FF, "-2147221249", "TVMRRegistry", "Undefined error number : 9"},
        {-10, 0x800400FF, "-2147221249", "TVMRRegistry", "Undefined error number : -1"},
    };
    for (const auto& c : cases) {
        system.desktop.expectForm<frmError>([&](frmError& dialog) {
            EXPECT_EQ(dialog.lblErrNumber.caption(), c.shown);
            EXPECT_EQ(dialog.lblErrDescription.caption(), c.description);
            dialog.cmdContinue.click();
        });
        registry.RaiseClassError(c.number);
        system.desktop.settle();
        EXPECT_EQ(basErrors::Err.number, c.raised);
        EXPECT_EQ(basErrors::Err.source, c.source);
        EXPECT_EQ(basErrors::Err.description, c.description);
    }
}

TEST_F(clsRegistry_, WrongMovesAreShownAndLeaveTheSessionUsable) {
    expectError("No current Key.");
    registry.cD("..");
    EXPECT_EQ(registry.CurrentKey(), "");
    system.makeKey(TestsKey);
    for (const char* from : {"\\", "\\HKEY_CURRENT_USER"}) {
        registry.cD(from);
        expectError("Invalid Key root.");
        registry.cD("\\HKEY_FOO\\Software");
        EXPECT_EQ(registry.CurrentKey(), "\\HKEY_FOO\\SOFTWARE");
        EXPECT_FALSE(registry.HasKeys());
        EXPECT_EQ(system.registry.openHandles(), 0u);
    }
    goTo(TestsKey);
    registry.MakeKey("Made");
    EXPECT_TRUE(system.exists(TestsKey + "\\Made"));
}

TEST_F(clsRegistry_, FailuresOfTheSystemAreRecordedAndNotShown) {
    const struct {
        platform::Result code;
        const char* text;
    } cases[] = {
        {2, "Key/Value does not exist."}, {5, "Access to Registry Denied."},    {14, "Out of memory."},
        {87, "Invalid Parameter."},       {1009, "Corrupt Registry Database!"}, {1010, "Key name is bad."},
        {1011, "Cannot Open Key."},       {1012, "Cannot Read Key."},           {1013, "Cannot Write Key."},
        {6, "Undefined key error code!"},
    };
    system.makeKey(TestsKey);
    goTo(TestsKey);
    for (const auto& c : cases) {
        system.registry.watch.failOn("RegDeleteKeyA", 1, c.code);
        registry.DeleteKey("Any");
        EXPECT_EQ(basErrors::Err.number, 0x80040400 + c.code);
        EXPECT_EQ(basErrors::Err.source, "TVMRRegistry[API Call]");
        EXPECT_EQ(basErrors::Err.description, c.text);
    }
    registry.ValueOf("Any", ValueType::String, "x"s);
    EXPECT_EQ(basErrors::Err.number, 0u);
}

TEST_F(clsRegistry_, MakesWholeChainsAndDeletesOneLevel) {
    system.makeKey(TestsKey);
    goTo(TestsKey);
    registry.MakeKey("A\\B\\C");
    EXPECT_EQ(registry.CurrentKey(), Upper);
    EXPECT_TRUE(registry.IsValidKey(platform::HKeyCurrentUser, "Software\\Tavimor Tests\\a\\b\\c"));
    registry.DeleteKey("A\\B\\C");
    EXPECT_FALSE(registry.IsValidKey(platform::HKeyCurrentUser, "Software\\Tavimor Tests\\A\\B\\C"));
    registry.DeleteKey("A");
    EXPECT_TRUE(system.exists(TestsKey + "\\A\\B"));
    EXPECT_EQ(system.registry.openHandles(), 1u);
}

TEST_F(clsRegistry_, ReadingAndWritingInTurnOpensTheKeyOnce) {
    system.makeKey(TestsKey);
    goTo(TestsKey);
    system.registry.watch.reset();
    for (int i = 0; i < 10; ++i) {
        registry.ValueOf("Value", ValueType::Dword, static_cast<double>(i));
        EXPECT_EQ(registry.ValueOf("Value")->number, i);
    }
    EXPECT_EQ(system.registry.watch.calls("RegOpenKeyExA"), 1);
    EXPECT_EQ(system.registry.watch.calls(), 22);
}

// Refused calls among them: what was opened is closed on every way out.
TEST_F(clsRegistry_, TenThousandOperationsLeaveNoHandleOpen) {
    system.makeKey(TestsKey);
    std::mt19937 random(19990318);
    const std::string absolute[] = {"\\", "\\" + TestsKey, "\\HKEY_LOCAL_MACHINE", "\\HKEY_CURRENT_USER\\Nowhere"};
    const std::string relative[] = {"..", ".", "A", "B", "A\\B", "Nowhere"};
    const std::string names[] = {"A", "B", "A\\B"};
    auto& watch = system.registry.watch;
    {
        clsRegistry session(system.platform(), strings);
        for (int i = 0; i < 10000; ++i) {
            if (random() % 50 == 0) watch.failOn(static_cast<int>(1 + random() % 4), platform::AccessDenied);
            const std::string& name = names[random() % std::size(names)];
            const bool ours = session.CurrentKey().starts_with(Upper);
            const auto operation = random() % 10;
            if (operation == 0)
                session.DirKey();
            else if (operation == 1)
                session.DirValue();
            else if (operation == 2)
                session.ValueOf(name);
            else if (operation == 3 && ours)
                session.MakeKey(name);
            else if (operation == 4 && ours)
                session.DeleteKey(name);
            else if (operation == 5 && ours)
                session.ValueOf(name, ValueType::String, name);
            else if (operation < 8 && !session.CurrentKey().empty())
                session.cD(relative[random() % std::size(relative)]);
            else
                session.cD(absolute[random() % std::size(absolute)]);
            ASSERT_LE(system.registry.openHandles(), 1u);
        }
        watch.reset();
        session.cD(Upper);
        EXPECT_EQ(system.registry.openHandles(), 1u);
    }
    EXPECT_EQ(system.registry.openHandles(), 0u);
}

}  // namespace
