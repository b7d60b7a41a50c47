#include "platform/shell.h"

#include "platform/file_writer.h"
#include "platform/files.h"
#include "platform/process.h"
#include "support/temporary_drives.h"
#include "support/temporary_user.h"

#include <cerrno>
#include <ctime>
#include <gtest/gtest.h>
#include <net/if.h>
#include <sched.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace platform;
namespace fs = std::filesystem;

namespace {

struct Desktop_shell : testing::Test {
    Temporary_user user;
    Temporary_drives drives;

    std::string trash(const std::string& path) const { return drives.user_data() + "/Trash/" + path; }
    static std::string contents(const std::string& host_path) {
        std::ifstream file(host_path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    // The shortcuts and what they lead to.
    static std::string recent_list() {
        std::string list;
        for (const std::string& shortcut : shell().recent_documents())
            list += shortcut.substr(shortcut.rfind('\\') + 1) + ">" +
                    shell().resolve_shortcut(shortcut).value_or("gone") + " ";
        return list;
    }
};

} // namespace

TEST_F(Desktop_shell, a_verb_starts_the_tool_of_the_host) {
    drives.write("Project/details #2.htm");
    drives.write("Project/help.htm");
    const std::string file = drives.host("Project/details #2.htm");
    // "" for a refusal (const char* tool;)
    const std::tuple<const char*, const char*, const char*, std::string, int> cases[] = {
        {"open", "C:\\project\\details #2.htm", "xdg-open", file, 0},
        {"OPEN", "C:\\Project", "xdg-open", drives.host("Project"), 0},
        {"open", "C:\\Project\\help.htm#top", "xdg-open",
         "file://" + drives.host("Project/help.htm") + "#top", 0},
        {"open", "C:\\Project\\gone.htm#top", "", "", result_file_not_found},
        {"open", "http://example.org/a\\b.htm", "xdg-open", "http://example.org/a/b.htm", 0},
        {"print", "C:\\Project\\details #2.htm", "lp", file, 0},
        {"edit", "C:\\Project\\details #2.htm", "pad", file, 0},
        {"edit", "C:\\Project", "", "", result_file_not_found},
        {"edit", "http://example.org/a.htm", "", "", result_file_not_found},
        {"open", "C:\\Project\\gone.htm", "", "", result_file_not_found},
        {"play", "C:\\Project\\details #2.htm", "", "", result_no_association}};
    user.set("VISUAL", "pad");
    for (const char* tool : {"xdg-open", "lp", "pad"})
        user.add_tool(tool);
    for (const auto& [verb, name, tool, told, refused_with] : cases) {
        const bool starts = *tool != '\0';
        EXPECT_EQ(shell().shell_execute(verb, name, normal_window), starts ? result_started : refused_with)
            << name;
        if (starts) {
            EXPECT_EQ(user.record_of_tool(tool), "[" + told + "]\n") << name;
        }
    }
}

TEST_F(Desktop_shell, a_registered_command_opens_the_file_when_it_is_executed) {
    EXPECT_EQ(shell().registered_command(".htm", "open"), std::nullopt);
    EXPECT_EQ(shell().registered_command(".htm", "print"), std::nullopt);
    drives.write("my page.htm");
    user.add_tool("xdg-open");
    user.add_tool("pad");
    user.set("VISUAL", "pad");
    for (const auto& [verb, tool] : {std::pair("open", "xdg-open"), std::pair("edit", "pad")}) {
        std::string command = shell().registered_command(".htm", verb).value_or("");
        // All behind the name is lost, as it is for those who fill the command in.
        command.replace(command.find("%1"), std::string::npos, "C:\\my page.htm");
        EXPECT_EQ(launcher().execute(command, normal_window), result_started);
        EXPECT_EQ(user.record_of_tool(tool), "[" + drives.host("my page.htm") + "]\n");
    }
    EXPECT_EQ(shell().registered_command("", "open"), std::nullopt);
    EXPECT_EQ(shell().registered_command(".htm", "play"), std::nullopt);
    user.unset("DISPLAY");
    EXPECT_EQ(shell().registered_command(".htm", "open"), std::nullopt);
}

TEST_F(Desktop_shell, what_is_recycled_can_be_restored) {
    drives.write("My data/caf\xC3\xA9 100%.tvn", "scenario");
    drives.write("My data/Sub/deep.txt", "deep");
    const std::string file = drives.host("My data/caf\xC3\xA9 100%.tvn");
    EXPECT_TRUE(shell().recycle("C:\\my data\\CAF\xE9 100%.tvn"));
    EXPECT_FALSE(exists("C:\\My data\\caf\xE9 100%.tvn"));
    EXPECT_EQ(contents(trash("files/caf\xC3\xA9 100%.tvn")), "scenario");

    const std::string record = contents(trash("info/caf\xC3\xA9 100%.tvn.trashinfo"));
    const std::string folder = fs::canonical(drives.host("")).string();
    const std::string head =
        "[Trash Info]\nPath=" + folder + "/My%20data/caf%C3%A9%20100%25.tvn\nDeletionDate=";
    EXPECT_EQ(record.find(head), 0u) << record;
    std::tm date{};
    EXPECT_STREQ(strptime(record.c_str() + head.size(), "%Y-%m-%dT%H:%M:%S", &date), "\n") << record;

    // The same name once more is kept beside the first, even one whose record was lost.
    fs::remove(trash("info/caf\xC3\xA9 100%.tvn.trashinfo"));
    drives.write("My data/caf\xC3\xA9 100%.tvn", "second");
    EXPECT_TRUE(shell().recycle("C:\\My data\\caf\xE9 100%.tvn"));
    EXPECT_EQ(contents(trash("files/caf\xC3\xA9 100%.tvn")), "scenario");

    fs::create_directory_symlink("My data", drives.host("link"));
    EXPECT_TRUE(shell().recycle("C:\\link"));
    EXPECT_TRUE(is_file("C:\\My data\\Sub\\deep.txt"));
    EXPECT_TRUE(shell().recycle("C:\\My data"));
    EXPECT_EQ(contents(trash("files/My data/Sub/deep.txt")), "deep");
    EXPECT_EQ(count_entries(trash("files")), 4);
    EXPECT_EQ(count_entries(trash("info")), 3);
    EXPECT_EQ(fs::status(trash("info")).permissions(), fs::perms::owner_all);
}

TEST_F(Desktop_shell, many_go_to_the_trash_in_order_until_the_user_says_stop) {
    std::vector<std::string> names{"C:\\", "C:\\none", ""};
    for (int i = 0; i < 150; ++i)
        drives.write(names.emplace_back(std::to_string(i) + ".tvn"));
    // What killed programs have left goes, but not what may be about to be moved.
    fs::create_directories(trash("info"));
    for (const char* record : {"info/old.trashinfo", "info/young.trashinfo"})
        std::ofstream(trash(record)) << "[Trash Info]\n";
    fs::last_write_time(trash("info/old.trashinfo"),
                        fs::file_time_type::clock::now() - std::chrono::minutes(2));
    std::size_t told = 0;
    const auto until_100 = [&](std::size_t done) {
        EXPECT_EQ(done, ++told);
        return done < 100;
    };
    const std::vector<bool> moved = shell().recycle_all(names, until_100);
    for (std::size_t i = 0; i < names.size(); ++i) {
        EXPECT_EQ(moved[i], i >= 3 && i < 103) << names[i];
        EXPECT_EQ(is_file(names[i]), i >= 103) << names[i];
    }
    EXPECT_EQ(count_entries(trash("info")), 101);
    EXPECT_TRUE(fs::exists(trash("info/young.trashinfo")));
    EXPECT_EQ(count_entries(trash("files")), 100);
    File_faults faults;
    faults.fail(Write_step::flush, EIO);
    EXPECT_EQ(shell().recycle_all(names, nullptr), std::vector<bool>(names.size(), false));
    EXPECT_EQ(count_entries(trash("info")), 101);
}

TEST_F(Desktop_shell, what_cannot_be_recycled_stays_where_it_is) {
    drives.write("file.txt", "kept");
    EXPECT_FALSE(shell().recycle("C:\\"));
    EXPECT_FALSE(shell().recycle("C:\\gone.txt"));
    EXPECT_FALSE(shell().recycle(""));
    {
        File_faults faults;
        faults.fail(Write_step::write, ENOSPC);
        EXPECT_FALSE(shell().recycle("C:\\file.txt"));
        EXPECT_EQ(count_entries(trash("info")), 0);
    }
    user.write("not a folder", "");
    user.set("XDG_DATA_HOME", user.home("not a folder/data"));
    EXPECT_FALSE(shell().recycle("C:\\file.txt"));
    EXPECT_EQ(drives.read("file.txt"), "kept");

    // The trash is inside what is to go there.
    drives.write("Home/file.txt");
    user.set("XDG_DATA_HOME", drives.host("Home/data"));
    EXPECT_FALSE(shell().recycle("C:\\Home"));
    EXPECT_TRUE(is_file("C:\\Home\\file.txt"));
    EXPECT_EQ(count_entries(drives.host("Home/data/Trash/info")), 0);
}

TEST_F(Desktop_shell, another_file_system_has_a_trash_of_its_own) {
    const std::string top = "/dev/shm";
    struct stat there {};
    struct stat here {};
    if (stat(top.c_str(), &there) != 0 || stat(user.home().c_str(), &here) != 0 ||
        there.st_dev == here.st_dev)
        GTEST_SKIP() << "no second file system at " << top;
    std::string folder = top + "/trash-test-XXXXXX";
    if (mkdtemp(folder.data()) == nullptr)
        GTEST_SKIP() << "cannot write to " << top;
    const std::string own_trash = top + "/.Trash-" + std::to_string(geteuid());
    const bool had_trash = fs::exists(own_trash);

    const std::string entry = fs::path(folder).filename();
    std::ofstream(folder + "/in it.txt") << "x";
    EXPECT_TRUE(shell().recycle(name_from_host_path(folder)));
    EXPECT_TRUE(fs::exists(own_trash + "/files/" + entry + "/in it.txt"));
    EXPECT_NE(contents(own_trash + "/info/" + entry + ".trashinfo").find("\nPath=" + entry + "\n"),
              std::string::npos);

    fs::remove_all(own_trash + "/files/" + entry);
    fs::remove(own_trash + "/info/" + entry + ".trashinfo");
    if (!had_trash)
        fs::remove_all(own_trash);
}

TEST_F(Desktop_shell, what_is_deleted_permanently_does_not_go_to_the_trash) {
    drives.write("Tree/Sub/file.txt");
    fs::create_symlink("nowhere", drives.host("dangling"));
    for (const char* name : {"C:\\tree", "C:\\dangling"}) {
        EXPECT_TRUE(shell().delete_permanently(name));
        EXPECT_FALSE(shell().delete_permanently(name));
    }
    EXPECT_FALSE(fs::exists(trash("")));
}

TEST_F(Desktop_shell, special_folders_follow_the_rules_of_the_desktop) {
    const auto folder = [](int number) { return shell().special_folder(number); };
    EXPECT_EQ(folder(folder_local_application_data), name_from_host_path(user.home(".config")));
    EXPECT_EQ(folder(folder_personal_documents), name_from_host_path(user.home()));
    EXPECT_TRUE(is_folder(folder(folder_recent_documents)));
    EXPECT_EQ(folder(17), "");

    user.write(".config/user-dirs.dirs", "# XDG_DOCUMENTS_DIR=\"/etc\"\nXDG_MUSIC_DIR=\"$HOME/Music\"\n"
                                         "XDG_DOCUMENTS_DIR=\"$HOME/My papers\"\n");
    EXPECT_EQ(folder(folder_personal_documents), name_from_host_path(user.home()));
    fs::create_directories(user.home("My papers"));
    EXPECT_EQ(folder(folder_personal_documents), name_from_host_path(user.home("My papers")));

    user.set("XDG_CONFIG_HOME", drives.host("settings"));
    EXPECT_EQ(folder(folder_local_application_data), "C:\\settings");
    user.set("XDG_CONFIG_HOME", "relative");
    EXPECT_EQ(folder(folder_local_application_data), name_from_host_path(user.home(".config")));
}

TEST_F(Desktop_shell, recent_documents_are_shortcuts_with_the_newest_first) {
    drives.write("a.tvp");
    drives.write("Other/a.tvp");
    drives.write("Maize/.TVS_project");
    drives.write("notes");
    for (const char* name :
         {"notes", "A.TVP", "C:\\other\\a.tvp", "C:\\Maize\\.TVS_project", "c:\\a.tvp", "C:\\gone"})
        shell().add_to_recent_documents(name);
    EXPECT_EQ(recent_list(), "a.tvp.lnk>C:\\a.tvp Maize.TVS_project.lnk>C:\\Maize\\.TVS_project "
                             "a (2).tvp.lnk>C:\\Other\\a.tvp notes.lnk>C:\\notes ");
    EXPECT_TRUE(is_link(shell().special_folder(folder_recent_documents) + "\\a.tvp.lnk"));

    fs::remove(drives.host("a.tvp"));
    EXPECT_EQ(recent_list().find("a.tvp.lnk>gone "), 0u);
    EXPECT_EQ(shell().resolve_shortcut("C:\\notes"), std::nullopt);
    EXPECT_EQ(shell().resolve_shortcut("C:\\gone.lnk"), std::nullopt);
}

TEST_F(Desktop_shell, the_oldest_recent_documents_are_dropped) {
    for (int i = 1; i <= 53; ++i) {
        drives.write(std::to_string(i) + ".tvp");
        shell().add_to_recent_documents(std::to_string(i) + ".tvp");
    }
    const std::string list = recent_list();
    EXPECT_EQ(shell().recent_documents().size(), 50u);
    EXPECT_EQ(list.find("53.tvp.lnk>"), 0u);
    EXPECT_NE(list.find(" 4.tvp.lnk>"), std::string::npos);
}

namespace {

// Leaves this process with a network of its own in which only the interface of the host to itself is up.
bool cut_off_from_network() {
    if (unshare(CLONE_NEWNET) != 0 && unshare(CLONE_NEWUSER | CLONE_NEWNET) != 0)
        return false;
    ifreq request{};
    request.ifr_name[0] = 'l';
    request.ifr_name[1] = 'o';
    request.ifr_flags = IFF_UP | IFF_RUNNING | IFF_LOOPBACK;
    return ioctl(socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0), SIOCSIFFLAGS, &request) == 0;
}

} // namespace

TEST_F(Desktop_shell, a_host_that_talks_only_to_itself_is_not_connected) {
    constexpr int cannot_tell = 2;
    const pid_t child = fork();
    if (child == 0)
        _exit(cut_off_from_network() ? shell().is_network_connected() : cannot_tell);
    int status = 0;
    waitpid(child, &status, 0);
    if (WEXITSTATUS(status) == cannot_tell)
        GTEST_SKIP() << "a process cannot be cut off from the network here";
    EXPECT_EQ(status, 0);
}
