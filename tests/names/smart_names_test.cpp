#include "foundation/association_list.h"
#include "names/recycling.h"
#include "names/smart_directory_name.h"
#include "names/smart_file_name.h"
#include "platform/shell.h"
#include "support/launcher_record.h"
#include "support/temporary_drives.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace TESK;
namespace fs = std::filesystem;

namespace {

// A desktop that writes down what it is asked.
class Shell_record : public platform::Shell {
public:
    std::string asked;
    int result = 33;
    std::optional<std::string> command;

    int shell_execute(const std::string& verb, const std::string& name, int show_mode) override {
        asked += verb + ' ' + name + " [" + std::to_string(show_mode) + "]\n";
        return result;
    }
    std::optional<std::string> registered_command(const std::string& extension,
                                                  const std::string& verb) override {
        asked += extension + ' ' + verb + '\n';
        return command;
    }
    bool recycle(const std::string& name) override {
        asked += "recycle " + name + '\n';
        return true;
    }
    std::string special_folder(int number) override { return number == 5 ? "C:\\Documents" : ""; }

private:
    platform::Shell_guard guard_{*this};
};

struct Smart_names : testing::Test {
    Temporary_drives drives;

    void link(const std::string& target, const std::string& path) const {
        fs::create_symlink(target, drives.host(path));
    }
    bool is_there(const std::string& path) const {
        return fs::symlink_status(drives.host(path)).type() != fs::file_type::not_found;
    }
};

struct List_request {
    const char* folder = "C:\\p";
    bool recurse = false;
    bool qualified = false;
    bool with_extension = true;
    std::uint8_t kind = list_files;
    const char* extension = nullptr;
    const char* relative_path = nullptr;
};

// The texts of the names, with a blank behind each.
std::string listed(const List_request& request) {
    Association_list list;
    Smart_directory_name(request.folder)
        .list_entries(list, request.recurse, request.qualified, request.with_extension, false, true,
                      request.kind, request.extension, request.relative_path);
    std::string texts;
    for (std::uint32_t i = 0; const Item* item = list.get_at(i); ++i)
        texts.append(item->get_key()).append(" ");
    return texts;
}

} // namespace

TEST_F(Smart_names, a_name_with_an_anchor_is_that_of_the_file_before_it) {
    drives.write("doc/help.htm");
    drives.write("run #3.tvn");
    for (const char* name : {"c:\\doc\\help.htm#topic", "doc#", "c:\\run #3.tvn"})
        EXPECT_TRUE(Smart_file_name(name).exists()) << name;
    for (const char* name : {"c:\\run #4.tvn", "#topic", "", "c:\\doc\\absent.htm#topic"})
        EXPECT_FALSE(Smart_file_name(name).exists()) << name;
    // The file before the anchor is another one.
    EXPECT_FALSE(Smart_file_name("c:\\doc\\help.htm#topic").recycle(true));
    EXPECT_TRUE(is_there("doc/help.htm"));
}

TEST_F(Smart_names, a_file_is_opened_by_the_command_of_its_type) {
    const std::tuple<const char*, std::optional<std::string>, int, const char*, const char*, int> cases[] = {
        {"C:\\a b.htm", "viewer -x \"%1\" -z", 33, ".htm show\n", "viewer -x \"C:\\a b.htm [5]\n", 0},
        {"a.htm#top", "viewer", 2, ".htm show\n", "viewer \"a.htm#top\" [5]\n", 2},
        {"a.htm", "viewer", 32, ".htm show\n", "viewer \"a.htm\" [5]\n", 0},
        {"a.htm", "viewer", 31, ".htm show\n", "viewer \"a.htm\" [5]\n", 31},
        {"a.htm", "/bin/firefox \"%1\"", 33, ".htm show\n", "", 1},
        {"a.q", std::nullopt, 33, ".q show\n", "explorer \"a.q\" [5]\n", 0},
        {"a", "viewer", 0, " show\n", "viewer \"a\" [5]\nexplorer \"a\" [5]\n", 0},
        {"a.12345678901234567890", std::nullopt, 5, ".123456789012345678 show\n",
         "explorer \"a.12345678901234567890\" [5]\n", 5}};
    for (const auto& [name, command, start_result, asked, started, result] : cases) {
        Shell_record shell;
        Launcher_record launcher;
        shell.command = command;
        launcher.result = start_result;
        EXPECT_EQ(Smart_file_name(name).open_with_verb("show"), result) << name;
        EXPECT_EQ(shell.asked, asked);
        EXPECT_EQ(launcher.started, started);
    }
}

TEST_F(Smart_names, the_desktop_is_asked_for_its_verbs) {
    Shell_record shell;
    Launcher_record launcher;
    const Smart_file_name file("a.txt");
    EXPECT_NE(file.edit(), 0);
    EXPECT_TRUE(file.print());
    shell.result = 32;
    EXPECT_FALSE(file.shell_open());
    EXPECT_EQ(file.open(), 0);
    EXPECT_EQ(shell.asked, "edit a.txt [5]\nprint a.txt [1]\nopen a.txt [5]\n.txt open\n");
    launcher.started.clear();
    EXPECT_NE(Smart_directory_name("C:\\my x").open(), 0);
    EXPECT_EQ(Smart_directory_name("C:\\my\" x").open(), 0);
    EXPECT_EQ(launcher.started, "explorer /n,/e,C:\\my x\" [1]\n");
}

TEST_F(Smart_names, recycling_has_two_modes) {
    Shell_record shell;
    drives.write("a.txt");
    drives.write("p/q/b.txt");
    EXPECT_FALSE(Smart_file_name("C:\\absent.txt").recycle(false));
    EXPECT_EQ(shell.asked, "");
    EXPECT_TRUE(Smart_file_name("C:\\a.txt").recycle(false));
    EXPECT_EQ(shell.asked, "recycle C:\\a.txt\n");
    EXPECT_TRUE(Smart_directory_name("C:\\p").recycle(true));
    EXPECT_FALSE(is_there("p"));

    drives.write("one");
    drives.write("three");
    const std::vector<std::string> names{"C:\\", "C:\\none", "C:\\one", "C:\\three"};
    const TESK::Recycling stopped = TESK::recycle_all(names, true, [](std::size_t done) { return done < 1; });
    EXPECT_TRUE(stopped.was_stopped && stopped.done == 1);
    EXPECT_EQ(stopped.kept, std::vector<std::string>{"C:\\"}) << "not what the stop kept from it";
}

TEST_F(Smart_names, a_file_tells_its_time) {
    drives.write("a.txt");
    std::tm tm{};
    strptime("2003-02-28 13:05:09", "%Y-%m-%d %H:%M:%S", &tm);
    tm.tm_isdst = -1;
    const timespec times[2] = {{std::mktime(&tm), 0}, {std::mktime(&tm), 0}};
    utimensat(AT_FDCWD, drives.host("a.txt").c_str(), times, 0);
    const Date_time_64 time = Smart_file_name("C:\\a.txt").get_date_time();
    EXPECT_EQ(time.get_date_number(), 2003059);
    EXPECT_EQ(time.get_time_number(), 130508);
    EXPECT_NEAR(Smart_file_name("C:\\absent").get_date_time().date_time, Date_time_64().date_time, 1);
}

TEST_F(Smart_names, roots_are_recognised) {
    for (const char* root : {"C:", "C:\\", "\\"})
        EXPECT_TRUE(Smart_directory_name(root).is_root()) << root;
    for (const char* other : {"C:\\x", "", "C:/", "x", "\\x"})
        EXPECT_FALSE(Smart_directory_name(other).is_root()) << other;
}

TEST_F(Smart_names, folders_are_made_level_by_level) {
    drives.write("a/file");
    for (const char* name : {"C:\\a\\b\\c", "C:\\a\\d\\e\\", "f\\g", "a\\file", "noname"})
        EXPECT_TRUE(Smart_directory_name(name).create()) << name;
    EXPECT_TRUE(is_there("a/b/c") && is_there("a/d/e") && is_there("f/g"));
    EXPECT_FALSE(is_there("noname"));
    const std::string hostile = std::string(200'000, '\\') + "x\\" + std::string(300, 'y');
    for (const char* name : {"C:\\a\\file\\x", "Q:\\x", "", "C:\\h/i", hostile.c_str()})
        EXPECT_FALSE(Smart_directory_name(name).create()) << name;
}

TEST_F(Smart_names, a_special_folder_is_taken_where_the_user_has_one) {
    Shell_record shell;
    EXPECT_EQ(Smart_directory_name(5), "C:\\Documents");
    EXPECT_EQ(Smart_directory_name(-1), "C:\\");
    Smart_directory_name name("x");
    EXPECT_FALSE(name.set_special_folder(9));
    EXPECT_EQ(name, "x");
}

TEST_F(Smart_names, files_and_folders_are_listed_with_every_flag) {
    for (const char* path : {"p/b.TVN", "p/A.tvn", "p/c", "p/.mark", "p/v1.2/plain", "p/v1.2/d.tvn",
                             "p/v1.2/deep/e.tvn", "p/.git/x.tvn"})
        drives.write(path);
    const std::pair<List_request, const char*> cases[] = {
        {{}, ".mark A.tvn b.TVN c "},
        {{"C:\\p", false, false, false}, ".mark A b c "},
        {{"p", false, true, true, list_files, "tvn"}, "p\\A.tvn p\\b.TVN "},
        {{"C:\\p", true, false, true, list_files, "tvn"}, "A.tvn b.TVN v1.2\\d.tvn v1.2\\deep\\e.tvn "},
        {{"C:\\p", true, false, false, list_files, nullptr, "r"},
         "r\\.mark r\\A r\\b r\\c r\\v1.2\\d r\\v1.2\\deep\\e r\\v1.2\\plain "},
        {{"C:\\p\\v1.2\\", true, true, false}, "C:\\p\\v1.2\\d C:\\p\\v1.2\\deep\\e C:\\p\\v1.2\\plain "},
        {{"C:\\p", false, false, false, list_directories, "tvn"}, "v1.2 "},
        {{"C:\\p", true, false, true, list_directories}, "v1.2 v1.2\\deep "},
        {{"C:\\p", false, false, true, 0}, ""},
        {{"C:\\absent", true}, ""},
        {{"", true}, ""}};
    for (const auto& [request, texts] : cases)
        EXPECT_EQ(listed(request), texts) << texts;
    EXPECT_EQ(platform::current_directory(), "C:\\");

    Association_list list(true);
    list.append(new File_name("c"));
    const Smart_directory_name folder("C:\\p");
    folder.list_entries(list, false, false, true, true, false, list_files, nullptr, nullptr);
    ASSERT_EQ(list.count(), 4u); // an item that the list refuses is not lost
    const auto& last = dynamic_cast<File_name&>(*list.get_at(3));
    EXPECT_TRUE(last.show_full_path && !last.show_extension);
    folder.list_entries(list, false, false, true, true, false, list_directories, nullptr, nullptr);
    EXPECT_TRUE(dynamic_cast<Directory_name&>(*list.get_at(4)).show_extension);
}

TEST_F(Smart_names, searches_enter_a_linked_folder_once_and_none_that_begins_with_a_point) {
    for (const char* path :
         {"p/a/x", "out/z", "q/q/Wheat.CRP", "q/r/wheat.crp", "q/.git/hidden.crp", "q/z.x/plain"})
        drives.write(path);
    for (const auto& [target, path] : {std::pair("..", "p/a/up"),
                                       {".", "p/here"},
                                       {"../out", "p/link"},
                                       {"../out", "p/link2"},
                                       {"nowhere", "p/lost"}})
        link(target, path);
    EXPECT_EQ(listed({"C:\\p", true}), "a\\x link\\z lost ");
    Smart_file_name found("old");
    for (const auto& [folder, name] :
         {std::pair("C:\\p", "absent"), {"C:\\q", "q"}, {"C:\\q", "hidden.crp"}, {"C:\\q", ""}})
        EXPECT_FALSE(Smart_directory_name(folder).find_file(name, found)) << name;
    EXPECT_EQ(found, "old");
    const char* cases[][3] = {{"C:\\p", "Z", "C:\\p\\link\\z"},
                              {"C:\\q", "WHEAT.crp", "C:\\q\\q\\Wheat.CRP"},
                              {"C:\\q", "plain", "C:\\q\\z.x\\plain"},
                              {"C:\\q", ".GIT", "C:\\q\\.git"}};
    for (const auto& [folder, name, place] : cases) {
        EXPECT_TRUE(Smart_directory_name(folder).find_file(name, found));
        EXPECT_EQ(found, place);
    }
}

TEST_F(Smart_names, what_cannot_be_deleted_is_told) {
    for (const char* path : {"top/p/a.txt", "top/p/b.txt", "top/p/q/c.txt", "top/p/.git/e.txt"})
        drives.write(path);
    chmod(drives.host("top/p/b.txt").c_str(), 0444);
    chmod(drives.host("top/p/q/c.txt").c_str(), 0444);
    platform::change_directory("C:\\top");
    std::string failures = "before ";
    Smart_directory_name tree("p");
    EXPECT_FALSE(tree.remove_tree(failures, false));
    EXPECT_EQ(failures, "before \"b.txt\", \"c.txt\", ");
    EXPECT_EQ(tree, "C:\\top\\p"); // the relative name is absolute now
    EXPECT_EQ(platform::current_directory(), "C:\\");
    EXPECT_FALSE(is_there("top/p/a.txt"));
    EXPECT_TRUE(is_there("top/p/.git/e.txt"));
}

TEST_F(Smart_names, a_tree_is_removed_with_its_links_or_its_files_alone) {
    for (const char* path : {"z.txt", "out/c.txt", "top/z.txt", "top/p/z.txt", "top/p/q/r/b.txt"})
        drives.write(path);
    link("../../out", "top/p/link");
    link("../..", "top/p/q/up");
    link("../../out/c.txt", "top/p/file");
    std::string failures;
    EXPECT_TRUE(Smart_directory_name("C:\\top\\p").remove_tree(failures, true));
    EXPECT_TRUE(is_there("top/p/q/r") && is_there("top/p/link"));
    EXPECT_FALSE(is_there("top/p/z.txt") || is_there("top/p/q/r/b.txt") || is_there("top/p/file"));
    EXPECT_TRUE(Smart_directory_name("C:\\top\\p").remove_tree(failures, false));
    EXPECT_FALSE(is_there("top/p"));
    EXPECT_EQ(platform::current_directory(), "C:\\");
    link("out", "p");
    EXPECT_TRUE(Smart_directory_name("C:\\p").remove_tree(failures, false));
    EXPECT_FALSE(is_there("p"));
    EXPECT_EQ(failures, "");
    // What the links led to stays, and so do files elsewhere that have the name of one in the tree.
    EXPECT_TRUE(is_there("out/c.txt") && is_there("top/z.txt") && is_there("z.txt"));
}

TEST_F(Smart_names, what_is_no_folder_or_holds_a_drive_is_not_removed) {
    drives.write("a.txt");
    std::string failures;
    for (const char* name : {"C:\\a.txt", "C:\\absent", "", "<None>"})
        EXPECT_TRUE(Smart_directory_name(name).remove_tree(failures, false)) << name;
    for (const char* name : {"C:\\", "\\", "."})
        EXPECT_FALSE(Smart_directory_name(name).remove_tree(failures, false)) << name;
    EXPECT_TRUE(is_there("a.txt"));
    EXPECT_EQ(platform::current_directory(), "C:\\");
}
