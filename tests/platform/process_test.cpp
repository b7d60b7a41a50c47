#include "platform/process.h"

#include "platform/command_line.h"
#include "support/temporary_drives.h"
#include "support/temporary_user.h"

#include <csignal>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace platform;
namespace fs = std::filesystem;

namespace {

struct Process : testing::Test {
    Temporary_user user;
    Temporary_drives drives;

    // A script below c: that is started as a program.
    void write_script(const std::string& path, const std::string& body) const {
        drives.write(path, "#!/bin/sh\n" + body);
        fs::permissions(drives.host(path), fs::perms::owner_all);
    }
    void write_recorder(const std::string& path, int exit_code = 0) const {
        drives.write(path);
        Temporary_user::make_recorder(drives.host(path), user.home("record"), exit_code);
    }
    std::string take_record() const { return Temporary_user::take_record(user.home("record")); }

    static std::optional<int> run(const std::string& command_line) {
        return launcher().create_and_wait(command_line, normal_window);
    }
    static int start(const std::string& command_line) {
        return launcher().execute(command_line, normal_window);
    }
    static bool has_children() { return waitpid(-1, nullptr, WNOHANG) != -1 || errno != ECHILD; }

    void TearDown() override { EXPECT_FALSE(has_children()); }
};

} // namespace

TEST_F(Process, a_suite_program_gets_its_arguments_as_they_stand_and_is_waited_for) {
    write_recorder("My suite/Tilverra/tilverra_5.exe", 7);
    const auto exit_code = run("\"C:\\my suite\\tilverra\\TILVERRA_5.EXE\"  \"C:\\P "
                               "1\\.TVS_project\" \"caf\xE9.tvn\" \"\" $HOME;`x`");
    EXPECT_EQ(exit_code, 7);
    EXPECT_EQ(take_record(), "[C:\\P 1\\.TVS_project]\n[caf\xE9.tvn]\n[]\n[$HOME;`x`]\n");

    write_script("killed.exe", "kill -9 $$\n");
    EXPECT_EQ(run("killed.exe"), 128 + SIGKILL);
    EXPECT_EQ(run("\"C:\\absent.exe\""), std::nullopt);

    // What is to be done meanwhile is done again and again.
    int calls = 0;
    const Waiting_guard meanwhile([&] {
        if (++calls == 3)
            drives.write("go");
    });
    write_script("patient.exe", "while [ ! -e go ]; do :; done\nexit 3\n");
    EXPECT_EQ(run("patient.exe"), 3);
}

TEST_F(Process, a_program_that_is_not_waited_for_goes_on_by_itself_and_its_end_can_be_noticed) {
    write_script("slow.exe", "while [ ! -e go ]; do :; done\nexit 5\n");
    write_script("killed.exe", "kill -9 $$\n");
    End_watch slow;
    EXPECT_EQ(start("absent.exe"), result_file_not_found);
    EXPECT_LT(slow.descriptor(), 0);
    EXPECT_EQ(start("slow.exe"), result_started);
    End_watch killed;
    EXPECT_EQ(start("killed.exe"), result_started);
    EXPECT_FALSE(has_children());
    const auto end_of = [](End_watch& watch) {
        pollfd readable{watch.descriptor(), POLLIN, 0};
        poll(&readable, 1, 10'000);
        return watch.take_end();
    };
    EXPECT_EQ(end_of(killed), 128 + SIGKILL);
    EXPECT_EQ(slow.take_end(), std::nullopt);
    drives.write("go");
    EXPECT_EQ(end_of(slow), 5);
}

TEST_F(Process, a_program_starts_in_the_current_directory_with_an_empty_input) {
    write_script("Project/look.exe", "{ pwd; echo \"$PWD\"; /bin/cat; } > seen\n");
    fs::create_directory_symlink("Project", drives.host("Link"));
    ASSERT_TRUE(change_directory("C:\\link"));
    EXPECT_EQ(run("look.exe"), 0);
    const std::string directory = drives.host("Link") + "\n";
    EXPECT_EQ(drives.read("Project/seen"), directory + directory);
}

TEST_F(Process, a_program_inherits_no_open_file_and_no_signal_setting) {
    constexpr int open_file = 77;
    dup2(STDOUT_FILENO, open_file);
    sigset_t blocked;
    sigset_t before;
    sigemptyset(&blocked);
    sigaddset(&blocked, SIGUSR1);
    sigprocmask(SIG_BLOCK, &blocked, &before);
    const auto handler = std::signal(SIGPIPE, SIG_IGN);

    // A shell would change some of this.
    EXPECT_EQ(run("z:\\bin\\cp /proc/self/status status"), 0);
    EXPECT_EQ(run("z:\\usr\\bin\\test -e /proc/self/fd/2"), 0);
    EXPECT_EQ(run("z:\\usr\\bin\\test -e /proc/self/fd/77"), 1);

    std::signal(SIGPIPE, handler);
    sigprocmask(SIG_SETMASK, &before, &blocked);
    close(open_file);
    EXPECT_TRUE(sigismember(&blocked, SIGUSR1)) << "the mask of this process has to come back";
    const std::string status = drives.read("status");
    const auto signals = [&](const std::string& key) {
        return std::stoull(status.substr(status.find(key) + key.size(), 17), nullptr, 16);
    };
    EXPECT_EQ(signals("SigBlk:"), 0u);
    EXPECT_EQ(signals("SigIgn:") >> (SIGPIPE - 1) & 1, 0u);
}

TEST_F(Process, a_program_that_cannot_be_started_gives_the_reason) {
    drives.write("Suite/data.exe", "not a program");
    drives.write("Suite/locked.exe", "#!/bin/sh\n");
    drives.write("Suite/windows.exe", "MZ\x90");
    user.add_tool("wine"); // of no use, since the drives are not its own
    write_script("Suite/lost.exe", "");
    drives.write("Suite/lost.exe", "#!/no/such/interpreter\n");
    fs::permissions(drives.host("Suite/data.exe"), fs::perms::owner_all);
    const std::pair<int, std::vector<std::string>> cases[] = {
        {result_file_not_found,
         {"", "\"\" x", "\"C:\\Suite\\absent.exe\" x", "no_such_tool", "C:\\Suite",
          "explorer /n,/e,C:\\Suite\"", "notepad.exe \"C:\\notes.txt\""}},
        {result_path_not_found, {"\"C:\\Nowhere\\absent.exe\"", "q:\\absent.exe"}},
        {result_refused,
         {"explorer /n,/e," + in_quotes("C:\\Suite\" \"C:\\"), "notepad.exe \"C:\\a\x07\"",
          "C:\\bin\\notepad " + in_quotes("C:\\Suite\\data.exe\"")}},
        {result_access_denied, {"\"C:\\Suite\\locked.exe\""}},
        {result_bad_format,
         {"\"C:\\Suite\\data.exe\"", "\"C:\\Suite\\lost.exe\"", "\"C:\\Suite\\windows.exe\""}}};
    for (const auto& [result, command_lines] : cases)
        for (const std::string& command_line : command_lines) {
            EXPECT_EQ(start(command_line), result) << command_line;
            EXPECT_EQ(run(command_line), std::nullopt) << command_line;
        }
}

TEST_F(Process, the_program_is_found_by_its_name) {
    write_recorder("My tools/run.exe");
    write_recorder("My.exe");
    write_recorder("Beside/sibling.exe");
    write_recorder("Elsewhere/local.exe");
    write_recorder("Elsewhere/tool");
    user.add_tool("tool");
    set_program_file(drives.host("Beside/project_editor.exe"));
    ASSERT_TRUE(change_directory("C:\\Elsewhere"));
    const char* cases[][2] = {
        {"c:\\My tools\\run.exe 1", "[tools\\run.exe]\n[1]\n"}, // the shorter one is there
        {"\"c:\\My tools\\run\" 2", "[2]\n"},
        {"..\\my a", "[a]\n"},
        {"sibling.exe 3", "[3]\n"},
        {"LOCAL 4", "[4]\n"}};
    for (const auto& [command_line, record] : cases) {
        EXPECT_EQ(run(command_line), 0) << command_line;
        EXPECT_EQ(take_record(), record) << command_line;
    }
    fs::remove(drives.host("My.exe"));
    EXPECT_EQ(run("c:\\My tools\\run.exe 1"), 0);
    EXPECT_EQ(take_record(), "[1]\n");
    EXPECT_EQ(run("tool 5"), 0);
    EXPECT_EQ(user.record_of_tool("tool"), "[5]\n");
    set_program_file("");
}

TEST_F(Process, a_host_tool_gets_host_paths) {
    user.add_tool("tool");
    drives.write("Data/caf\xC3\xA9.txt");
    ASSERT_TRUE(change_directory("C:\\Data"));
    run("tool -n \"C:\\DATA\\caf\xE9.txt\" CAF\xE9.TXT c:\\new.txt http://a.b\\c other");
    const std::string file = "[" + drives.host("Data/caf\xC3\xA9.txt") + "]\n";
    EXPECT_EQ(user.record_of_tool("tool"),
              "[-n]\n" + file + file + "[" + drives.host("new.txt") + "]\n[http://a.b/c]\n[other]\n");
}

TEST_F(Process, a_windows_program_runs_in_the_prefix_whose_drives_are_in_use) {
    fs::create_directories(user.home("prefix/dosdevices"));
    fs::create_directories(user.home("prefix/drive_c/Suite"));
    fs::create_symlink("../drive_c", user.home("prefix/dosdevices/c:"));
    user.write("prefix/drive_c/Suite/skymill.exe", "MZ");
    const Drives_guard guard(user.home("prefix/dosdevices") + "/");
    ASSERT_TRUE(change_directory("C:\\"));
    EXPECT_EQ(start("C:\\suite\\skymill.exe"), result_bad_format);

    user.write("tools/wine",
               "#!/bin/sh\nprintf '[%s]\\n' \"$WINEPREFIX\" \"$@\" > '" + user.home("record") + "'\n");
    fs::permissions(user.home("tools/wine"), fs::perms::owner_all);
    EXPECT_EQ(run("C:\\Suite\\skymill.exe \"C:\\caf\xE9 1.wtb\""), 0);
    EXPECT_EQ(take_record(),
              "[" + user.home("prefix") + "]\n[C:\\Suite\\skymill.exe]\n[C:\\caf\xC3\xA9 1.wtb]\n");
}

TEST_F(Process, explorer_is_the_file_manager_of_the_host) {
    user.add_tool("xdg-open");
    drives.write("My project/Scenarios/a.tvn");
    const std::tuple<const char*, std::string> cases[] = {
        {"explorer /n,/e,C:\\My project\"", drives.host("My project")},
        {"explorer /n,/e,\"C:\\my project\\scenarios\"", drives.host("My project/Scenarios")},
        {"explorer /n,/e,/select,\"C:\\My project\\Scenarios\\a.tvn\"", drives.host("My project/Scenarios")},
        {"C:\\WINDOWS\\Explorer.EXE \"C:\\My project\\\"", drives.host("My project")},
        {"\"explorer.exe\"", drives.host()},
        {"explorer \"http://example.org/help\\manual.htm\"", "http://example.org/help/manual.htm"}};
    for (const auto& [command_line, opened] : cases) {
        EXPECT_EQ(start(command_line), result_started) << command_line;
        EXPECT_EQ(user.record_of_tool("xdg-open"), "[" + opened + "]\n") << command_line;
    }
    EXPECT_EQ(start("explorer /n,/e,C:\\Gone\""), result_file_not_found);
    user.unset("DISPLAY");
    EXPECT_EQ(start("explorer C:\\"), result_file_not_found);
}

TEST_F(Process, notepad_is_the_text_editor_of_the_host) {
    drives.write("details.htm");
    const std::string file = drives.host("details.htm");
    const auto edit = [&](const std::string& tool) {
        EXPECT_EQ(start("\"notepad.exe\"  \"C:\\details.htm\" "), result_started);
        return user.record_of_tool(tool);
    };
    user.add_tool("xdg-open");
    EXPECT_EQ(edit("xdg-open"), "[" + file + "]\n");

    user.add_tool("pad");
    user.write("etc/xdg/mimeapps.list",
               "[Added Associations]\ntext/plain=no.desktop\n[Default Applications]\n"
               "text/html=web.desktop\ntext/plain=gone.desktop;vi.desktop;org-pad.desktop;\n");
    user.write("usr/share/applications/vi.desktop", "[Desktop Entry]\nExec=pad vi %F\nTerminal=true\n");
    user.write("usr/share/applications/org/pad.desktop",
               "[Desktop Entry]\nName=Pad\nExec=pad \"--new window\" %U %c\n[Desktop Action x]\nExec=no\n");
    EXPECT_EQ(edit("pad"), "[--new window]\n[file://" + file + "]\n");

    user.add_tool("my editor");
    user.set("VISUAL", "'my editor' -w");
    EXPECT_EQ(edit("my editor"), "[-w]\n[" + file + "]\n");
}

TEST_F(Process, the_program_is_named_by_the_path_it_was_started_with) {
    drives.write("Suite/Tilverra/.keep");
    fs::create_symlink("/bin/sh", drives.host("Suite/Tilverra/project_editor.exe"));
    EXPECT_EQ(set_program_file(drives.host("Suite/Tilverra/project_editor.exe")),
              "C:\\Suite\\Tilverra\\project_editor.exe");
    ASSERT_TRUE(change_directory("C:\\Suite"));
    EXPECT_EQ(set_program_file("Tilverra/project_editor.exe"), "C:\\Suite\\Tilverra\\project_editor.exe");
    user.set("PATH", drives.host("Suite/Tilverra"));
    EXPECT_EQ(set_program_file("project_editor.exe"), "C:\\Suite\\Tilverra\\project_editor.exe");
    EXPECT_NE(set_program_file("").find("platform_tests"), std::string::npos);
}
