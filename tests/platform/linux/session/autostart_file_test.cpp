#include "kit/temporary_folder.h"
#include "platform/linux/session/autostart_file.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <ostream>

namespace glidemap {

using Start = AutostartFile::Start;

void PrintTo(Start start, std::ostream* stream) {
    constexpr const char* names[] = {"happens", "hidden", "switchedOff", "elsewhere", "impossible"};
    *stream << names[static_cast<int>(start)];
}

namespace {

using test::TemporaryFolder;

class AutostartFileTest : public testing::Test {
protected:
    // Replaces PROGRAM with the path of an existing program.
    AutostartFile fileWith(std::string text) const {
        for (auto at = text.find("PROGRAM"); at != std::string::npos; at = text.find("PROGRAM")) {
            text.replace(at, std::string("PROGRAM").size(), program.string());
        }
        return AutostartFile::read(folder.write("file.desktop", text));
    }

    Start start(const std::string& text, std::vector<std::string> desktops = {"GNOME"}) const {
        return fileWith(text).start({std::move(desktops), program.parent_path().string()});
    }

    std::string repaired(const std::string& text) const {
        AutostartFile file = fileWith(text);
        file.repair(session, program);
        return file.text();
    }

    TemporaryFolder folder;
    std::filesystem::path program = folder.writeProgram("bin/glidemap");
    AutostartSession session{{"GNOME"}, program.parent_path().string()};
};

TEST_F(AutostartFileTest, PredictsWhetherASessionStartsTheEntry) {
    const std::string entry = "[Desktop Entry]\nType=Application\nExec=PROGRAM\n";
    struct Row {
        const char* what;
        std::string text;
        Start start;
    };
    const Row rows[] = {
        {"a minimal entry", entry, Start::happens},
        {"found by its name", "[Desktop Entry]\nType=Application\nExec=glidemap\n", Start::happens},
        {"with arguments", "[Desktop Entry]\nType=Application\nExec=glidemap --quiet\n",
         Start::happens},
        {"CRLF line ends", "[Desktop Entry]\r\nType=Application\r\nExec=glidemap\r\n",
         Start::happens},
        {"after a comment", "# Mine\n\n" + entry, Start::happens},

        {"hidden", entry + "Hidden=true\n", Start::hidden},
        {"hidden, without other keys", "[Desktop Entry]\nHidden=true\n", Start::hidden},
        {"not hidden", entry + "Hidden=false\n", Start::happens},
        {"hidden has an invalid value", entry + "Hidden=yes\n", Start::happens},
        {"hidden from menus only", entry + "NoDisplay=true\n", Start::happens},

        {"switched off", entry + "X-GNOME-Autostart-enabled=false\n", Start::switchedOff},
        {"switched on", entry + "X-GNOME-Autostart-enabled=true\n", Start::happens},
        {"switched by an invalid value", entry + "X-GNOME-Autostart-enabled=perhaps\n",
         Start::happens},

        {"TryExec exists", entry + "TryExec=PROGRAM\n", Start::happens},
        {"TryExec is found by its name", entry + "TryExec=glidemap\n", Start::happens},
        {"TryExec is missing", entry + "TryExec=/nowhere/glidemap\n", Start::impossible},
        {"the program is missing", "[Desktop Entry]\nType=Application\nExec=/nowhere/glidemap\n",
         Start::impossible},
        {"the program is not executable", "[Desktop Entry]\nType=Application\nExec=/etc/passwd\n",
         Start::impossible},
        {"the program is not in PATH", "[Desktop Entry]\nType=Application\nExec=not-there\n",
         Start::impossible},
        {"an unclosed quote", "[Desktop Entry]\nType=Application\nExec=\"PROGRAM\n",
         Start::impossible},
        {"an empty command", "[Desktop Entry]\nType=Application\nExec=\n", Start::impossible},
        {"no command", "[Desktop Entry]\nType=Application\n", Start::impossible},
        {"a link", "[Desktop Entry]\nType=Link\nExec=PROGRAM\n", Start::impossible},
        {"no type", "[Desktop Entry]\nExec=PROGRAM\n", Start::impossible},
        {"the keys of an action", "[Desktop Action x]\nType=Application\nExec=PROGRAM\n",
         Start::impossible},
        {"no entry", "Hello\n", Start::impossible},
        {"nothing", "", Start::impossible},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(start(row.text), row.start) << row.what;
    }
}

TEST_F(AutostartFileTest, FirstOfTheCurrentDesktopsThatTheFileListsDecidesTheStart) {
    struct Row {
        const char* lists;
        std::vector<std::string> desktops;
        Start start;
    };
    const Row rows[] = {
        {"OnlyShowIn=GNOME;\n", {"GNOME"}, Start::happens},
        {"OnlyShowIn=KDE;GNOME\n", {"GNOME"}, Start::happens},
        {"OnlyShowIn=KDE;\n", {"GNOME"}, Start::elsewhere},
        {"OnlyShowIn=KDE;\n", {}, Start::elsewhere},
        {"OnlyShowIn=gnome;\n", {"GNOME"}, Start::elsewhere},
        {"OnlyShowIn=\n", {"GNOME"}, Start::elsewhere},
        {"NotShowIn=GNOME;\n", {"GNOME"}, Start::elsewhere},
        {"NotShowIn=KDE;\n", {"GNOME"}, Start::happens},
        {"NotShowIn=KDE;\n", {}, Start::happens},
        {"NotShowIn=\n", {"GNOME"}, Start::happens},
        {"OnlyShowIn=GNOME;\n", {"ubuntu", "GNOME"}, Start::happens},
        {"NotShowIn=GNOME;\n", {"ubuntu", "GNOME"}, Start::elsewhere},
        {"OnlyShowIn=ubuntu;\nNotShowIn=GNOME;\n", {"ubuntu", "GNOME"}, Start::happens},
        {"OnlyShowIn=GNOME;\nNotShowIn=ubuntu;\n", {"ubuntu", "GNOME"}, Start::elsewhere},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(
            start(std::string("[Desktop Entry]\nType=Application\nExec=PROGRAM\n") + row.lists,
                  row.desktops),
            row.start)
            << row.lists << testing::PrintToString(row.desktops);
    }
}

TEST_F(AutostartFileTest, InvalidFileStartsNothing) {
    EXPECT_EQ(AutostartFile::read(folder.path()).start(session), Start::impossible);
    EXPECT_EQ(AutostartFile::read("/dev/null").start(session), Start::impossible);
    EXPECT_EQ(AutostartFile::read(folder.path() / "none").start(session), Start::impossible);
    const auto pipe = folder.path() / "pipe";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_EQ(AutostartFile::read(pipe).start(session), Start::impossible);
}

TEST_F(AutostartFileTest, RepairRemovesOnlyKeysThatPreventTheStart) {
    const std::string programLine = "Exec=" + program.string() + "\n";
    const std::string described = "Name=Glidemap\nIcon=org.glidemap.Glidemap\n";
    struct Row {
        const char* what;
        std::string before;
        std::string after;
    };
    const Row rows[] = {
        {"nothing yet", "", "[Desktop Entry]\n" + programLine + "Type=Application\n" + described},
        {"no entry", "Hello\n",
         "[Desktop Entry]\n" + programLine + "Type=Application\n" + described},
        {"switched off in every way",
         "# Mine\n\n[Desktop Entry]\nType=Application\nName=My pad\nName[de]=Mein "
         "Feld\nHidden=true\n"
         "# with care\nExec=PROGRAM --quiet\nTryExec=/nowhere\nOnlyShowIn=KDE;\n"
         "X-GNOME-Autostart-enabled=false\nX-GNOME-Autostart-Delay=5\nIcon=mine\n"
         "\n[Desktop Action x]\nExec=other\n",
         "# Mine\n\n[Desktop Entry]\nType=Application\nName=My pad\nName[de]=Mein Feld\n"
         "# with care\nExec=PROGRAM --quiet\nX-GNOME-Autostart-Delay=5\nIcon=mine\n"
         "\n[Desktop Action x]\nExec=other\n"},
        {"not for this desktop",
         "[Desktop Entry]\nType=Application\nName=x\nIcon=x\nExec=PROGRAM\nNotShowIn=GNOME;\n",
         "[Desktop Entry]\nType=Application\nName=x\nIcon=x\nExec=PROGRAM\n"},
        {"for this desktop among others",
         "[Desktop Entry]\nType=Application\nName=x\nIcon=x\nExec=PROGRAM\nNotShowIn=KDE;\n",
         "[Desktop Entry]\nType=Application\nName=x\nIcon=x\nExec=PROGRAM\nNotShowIn=KDE;\n"},
        {"another program",
         "[Desktop Entry]\nType=Link\nName=x\nIcon=x\nExec=/bin/true --quiet\nTryExec=glidemap\n",
         "[Desktop Entry]\nType=Application\nName=x\nIcon=x\nExec=PROGRAM\nTryExec=glidemap\n"},
    };
    for (const Row& row : rows) {
        std::string after = row.after;
        if (const auto at = after.find("PROGRAM"); at != std::string::npos) {
            after.replace(at, std::string("PROGRAM").size(), program.string());
        }
        const std::string text = repaired(row.before);
        EXPECT_EQ(text, after) << row.what;
        EXPECT_EQ(start(text), Start::happens) << row.what;
        EXPECT_TRUE(fileWith(text).starts(session, program)) << row.what;
    }
}

TEST_F(AutostartFileTest, HidingKeepsOtherKeys) {
    AutostartFile file =
        fileWith("# Mine\n\n[Desktop Entry]\nType=Application\nName=x\nIcon=x\nExec=PROGRAM -q\n");
    file.hide();
    EXPECT_EQ(file.text(), "# Mine\n\n[Desktop Entry]\nType=Application\nName=x\nIcon=x\nExec=" +
                               program.string() + " -q\nHidden=true\n");
}

TEST_F(AutostartFileTest, EntryForAnotherProgramDoesNotStartGlidemap) {
    const AutostartFile file = fileWith("[Desktop Entry]\nType=Application\nExec=/bin/true\n");
    EXPECT_EQ(file.start(session), Start::happens);
    EXPECT_FALSE(file.starts(session, program));
}

TEST_F(AutostartFileTest, EveryProgramPathReadsBackUnchanged) {
    for (const char* const name :
         {"plain", "with space", "cash$HOME", "tick`id`", "say\"so\"", "back\\slash", "100%",
          "100% %u", "it's", "触控板", "semi;colon", "tab\tline\nend", " leading", "a=b"}) {
        const auto odd = folder.writeProgram(std::filesystem::path(name) / "glidemap");
        AutostartFile file = fileWith("");
        file.repair(session, odd);
        const auto read = AutostartFile::read(folder.write("odd.desktop", file.text()));
        EXPECT_TRUE(read.starts(session, odd)) << file.text();
    }
}

} // namespace
} // namespace glidemap
