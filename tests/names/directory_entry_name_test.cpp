#include "names/directory_entry_name.h"

#include "foundation/association_list.h"
#include "names/directory_name.h"
#include "names/file_name.h"
#include "support/launcher_record.h"
#include "support/temporary_drives.h"

#include <gtest/gtest.h>
#include <sstream>

using namespace TESK;
namespace fs = std::filesystem;

namespace {

constexpr std::size_t npos = std::string::npos;

std::string path_of(const Directory_entry_name& name, bool strip_separator) {
    Directory_name path("old");
    name.get_path(path, strip_separator);
    return path;
}

} // namespace

TEST(Directory_entry_name, a_text_is_split_into_its_parts) {
    // "kept" where there is no path (const char *text, *path, *path_no_drive, *name, *extension;)
    const std::tuple<const char*, const char*, const char*, const char*, const char*, std::size_t,
                     std::size_t>
        cases[] = {{"C:\\dir\\name.ext", "C:\\dir\\", "\\dir\\", "name", ".ext", 0, 2},
                   {"name", "", "kept", "name", "", npos, npos},
                   {"", "", "kept", "", "", npos, npos},
                   {"a/b.c", "a/", "a/", "b", ".c", npos, 0},
                   {"C:name.x", "C:", "kept", "name", ".x", 0, npos},
                   {".tvp", "", "kept", ".tvp", "", npos, npos},
                   {"C:\\x\\.TVS_project", "C:\\x\\", "\\x\\", "", ".TVS_project", 0, 2},
                   // The last point counts, wherever it is.
                   {"C:\\a.b\\c", "C:\\a.b\\", "\\a.b\\", "c", ".b\\c", 0, 2},
                   {"x\\y:z", "x\\y:", "x\\y:", "z", "", 0, 0}};
    for (const auto& [text, path, path_no_drive, name, extension, drive_pos, path_pos] : cases) {
        const File_name whole(text);
        std::string out = "kept";
        EXPECT_EQ(path_of(whole, false), path) << text;
        EXPECT_EQ(whole.get_path_no_drive(out), path_no_drive) << text;
        EXPECT_EQ(whole.get_name(false), name) << text;
        EXPECT_EQ(whole.get_ext(), extension) << text;
        EXPECT_EQ(whole.drive_pos, drive_pos) << text;
        EXPECT_EQ(whole.path_pos, path_pos) << text;
        EXPECT_EQ(whole, text);
    }
    EXPECT_EQ(path_of(File_name("C:\\x\\y"), true), "C:\\x");
    EXPECT_EQ(path_of(File_name("C:/x/y"), true), "C:/x/");
}

TEST(Directory_entry_name, each_part_can_be_replaced) {
    const std::tuple<const char*, const char*, void (*)(File_name&)> cases[] = {
        {"a.b", "a", [](File_name& n) { n.set_ext(""); }},
        {"C:\\x\\a.b", "C:\\x\\a.txt", [](File_name& n) { n.set_ext("txt"); }},
        {"a", "a.txt", [](File_name& n) { n.set_ext(".txt"); }},
        {"a.b", "a.*", [](File_name& n) { n.set_ext(nullptr); }},
        {"C:\\a.b\\c", "C:\\a.x", [](File_name& n) { n.set_ext(".x"); }},
        {"<None>", "<None>", [](File_name& n) { n.set_ext("crp"); }},
        {"C:\\x\\y.z", "D:\\x\\y.z", [](File_name& n) { n.set_drive("D"); }},
        {"x\\y.z", "D:x\\y.z", [](File_name& n) { n.set_drive("D:"); }},
        {"C:\\x\\y.z", "\\x\\y.z", [](File_name& n) { n.set_drive(""); }},
        {"C:\\x\\y.z", "C:\\x\\new.z", [](File_name& n) { n.set_name("new"); }},
        {"C:\\x\\y.z", "C:\\x\\new", [](File_name& n) { n.set_name_ext("new"); }},
        {"C:\\x\\y.z", "D:\\y.z", [](File_name& n) { n.set_path(Directory_name("D:\\")); }},
        {"C:\\x\\y.z", "y.z", [](File_name& n) { n.set_path(Directory_name("")); }},
        {"C:\\x\\y.z", "y.z", [](File_name& n) { n.set(n.get_name(true).c_str()); }},
        {"x", "C:\\a\\b", [](File_name& n) { n.compose("C:", "\\a\\", "b", nullptr); }}};
    for (const auto& [text, result, change] : cases) {
        File_name name(text);
        change(name);
        EXPECT_EQ(name, result);
    }
    EXPECT_EQ(File_name("a.b", "txt"), "a.txt");
    EXPECT_EQ(File_name(Ustring("a.b"), ".txt"), "a.txt");
    EXPECT_EQ(File_name("a.b", ""), "a."); // that constructor brings a point of its own
    EXPECT_EQ(File_name(static_cast<const char*>(nullptr)), "");
    EXPECT_EQ(Directory_name(Directory_name("C:\\x\\y.tvn"), true), "C:\\x\\y");
}

TEST(Directory_entry_name, text_and_parts_stay_in_step) {
    File_name name("C:\\dir\\name.ext");
    name = "a.b";
    EXPECT_EQ(name.get_name(false), "a");
    name = std::string("long\\path\\c.d");
    EXPECT_EQ(name.get_name(false), "c");
    name.assign("e.f");
    EXPECT_EQ(name.get_ext(), ".f");
    name.set(L"g\u0168.h");
    EXPECT_EQ(name, "gh.h");
    name = Directory_name("C:\\x");
    EXPECT_EQ(name.get_name(true), "x");

    File_name copy = name;
    name = "other\\text";
    EXPECT_EQ(copy.get_name(true), "x");

    // Changes behind the back of the class leave wrong parts, but none outside the text.
    name.clear();
    EXPECT_EQ(name.get_name(true), "");
    EXPECT_EQ(name.get_ext(), "");
    name.set_ext("x");
    EXPECT_EQ(name, ".x");
    name.decompose();
    EXPECT_EQ(name.get_name(true), ".x");
}

TEST(Directory_entry_name, extensions_and_drives_are_recognised) {
    const File_name name("x\\a.TVN");
    EXPECT_TRUE(name.has_ext("tvn") && name.has_ext(".tvn"));
    EXPECT_FALSE(name.has_ext("tv") || File_name("a").has_ext(""));
    EXPECT_TRUE(name.is_qualified(false) && File_name("c:a").is_qualified(true));
    EXPECT_FALSE(File_name("x/a").is_qualified(false) || File_name("\\a").is_qualified(true));
}

TEST(Directory_entry_name, names_are_items_of_lists) {
    std::string label = "old";
    File_name name("C:\\x\\y.z");
    EXPECT_EQ(name.label_to(label), "y");
    name.show_extension = true;
    EXPECT_EQ(name.label_to(label), "y.z");
    name.show_full_path = true;
    EXPECT_EQ(name.label_to(label), "C:\\x\\y.z");

    Association_list list;
    list.append(new File_name("b.x"));
    list.append(new Directory_name("A"));
    list.sort(Sort_order::ascending);
    EXPECT_EQ(list.find("B.X", false), list.get_at(1));
    std::ostringstream out;
    list.write(out);
    EXPECT_EQ(out.str(), "A\nb.x\n");
}

TEST(Directory_entry_name, the_file_manager_is_started_on_the_name) {
    Launcher_record launcher;
    EXPECT_TRUE(File_name("C:\\my x\\y.z").explore(true));
    EXPECT_TRUE(Directory_name("C:\\x").explore(false));
    EXPECT_EQ(launcher.started, "explorer /n,/e,/select,\"C:\\my x\\y.z\" [1]\n"
                                "explorer /n,/e,\"C:\\x\" [1]\n");
}

TEST(Directory_name, names_are_joined_and_split) {
    File_name target("old");
    for (const auto& [folder, joined] :
         {std::pair("C:\\x", "C:\\x\\y"), {"C:\\x\\", "C:\\x\\y"}, {"C:/x/", "C:/x/y"}, {"", "y"}})
        EXPECT_EQ(Directory_name(folder).append_to("y", target), joined);
    EXPECT_EQ(target.get_name(true), "y");
    Directory_name name("C:\\x");
    EXPECT_EQ(name.append_to("y", target, true), "C:\\x/y");
    EXPECT_EQ(name.append_to("y", name), "C:\\x\\y");

    Directory_name first("");
    name = "a\\b";
    name.split_first(first, '\\');
    EXPECT_EQ(first + '|' + name, "a\\|b");
    name.split_first(first, '\\');
    EXPECT_EQ(first + '|' + name, "b|");
}

TEST(Directory_entry_name, qualifying_starts_from_the_current_directory_and_keeps_it) {
    const Temporary_drives drives;
    fs::create_directories(drives.host("a/b"));
    ASSERT_TRUE(platform::change_directory("C:\\a\\b"));
    // The root ends in a separator, which is not looked at.
    const char* cases[][2] = {
        {"..\\..\\..\\x", "C:\\\\x"}, {"..\\x", "C:\\a\\x"},     {"x", "C:\\a\\b\\x"}, {"\\x", "\\x"},
        {"../x", "C:\\a\\b\\../x"},   {"..", "C:\\a\\b\\.."},    {"../", "C:\\a\\"},   {"d:x", "d:x"},
        {".\\x", "C:\\a\\b\\.\\x"},   {"<default>", "<default>"}};
    for (const auto& [text, result] : cases) {
        File_name name(text);
        EXPECT_EQ(name.qualify(), *text != '<');
        EXPECT_EQ(name, result);
        EXPECT_EQ(Directory_name(), "C:\\a\\b");
    }
    ASSERT_TRUE(platform::change_directory("C:\\"));
    for (const char* text : {"x", "C:\\x"}) {
        File_name name(text);
        EXPECT_TRUE(name.qualify_in_root());
        EXPECT_EQ(name, "C:\\x");
    }
}

TEST(Directory_entry_name, a_name_is_made_relative_to_a_folder) {
    const Temporary_drives drives;
    fs::create_directories(drives.host("p/q"));
    ASSERT_TRUE(platform::change_directory("C:\\p\\q"));
    // Components do not count; case counts in the drive; a relative name is taken from the current directory.
    const char* cases[][3] = {
        {"C:\\p\\q\\f.t", "C:\\p", "q\\f.t"}, {"C:\\P\\q\\f.t", "c:\\p\\", "q\\f.t"},
        {"C:\\abc\\x", "C:\\a", "bc\\x"},     {"C:\\p\\q\\f.t", "C:\\p\\r", "..\\q\\f.t"},
        {"C:\\p\\q", "C:\\p\\q", ""},         {"C:\\p\\f.t", "C:\\p\\q", "..\\f.t"},
        {"f.t", "C:\\p", "q\\f.t"},           {"C:\\x\\y\\z.t", "C:\\p\\q", "..\\..\\x\\y\\z.t"},
        {"f.t", "C:\\r", "..\\p\\q\\f.t"},    {"D:\\p\\f.t", "C:\\p", "D:\\p\\f.t"},
        {"..\\f.t", "C:\\p\\q", "..\\f.t"},   {"c:\\x\\f.t", "C:\\p", "c:\\x\\f.t"},
        {"<None>", "C:\\p", "<None>"}};
    for (const auto& [text, base, result] : cases) {
        File_name name(text);
        name.make_relative_to(Directory_name(base));
        EXPECT_EQ(name, result) << text << " in " << base;
    }
}
