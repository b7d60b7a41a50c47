#include "platform/listing.h"

#include "platform/files.h"
#include "support/temporary_drives.h"

#include <gtest/gtest.h>
#include <map>
#include <sys/stat.h>

using namespace platform;
namespace fs = std::filesystem;

TEST(listing, tells_every_entry_that_a_name_can_reach_with_its_attributes) {
    Temporary_drives drives;
    for (const char* file : {"a", "A", ".point", "locked", "M\xC3\xBCller", "x:y", "x\\y",
                             ".~saving-0123456789ab", ".~saving-mine"})
        drives.write(std::string("f/") + file);
    fs::permissions(drives.host("f/locked"), fs::perms(0444));
    fs::create_directory(drives.host("f/sub"));
    fs::create_symlink("sub", drives.host("f/to sub"));
    fs::create_symlink("none", drives.host("f/to nowhere"));

    for (const Listed_attributes asked : {Listed_attributes::kind, Listed_attributes::all}) {
        const int locked = asked == Listed_attributes::all ? attribute_read_only : 0;
        std::map<std::string, std::pair<int, bool>> found;
        for (const Folder_entry& entry : list_folder("F", "*.*", asked))
            found[entry.name] = {entry.attributes, entry.is_link};
        const int file = attribute_archive;
        const std::map<std::string, std::pair<int, bool>> expected = {{"a", {file, false}},
                                                                      {"A", {file, false}},
                                                                      {".point", {file, false}},
                                                                      {"locked", {file | locked, false}},
                                                                      {"M\xFCller", {file, false}},
                                                                      {".~saving-mine", {file, false}},
                                                                      {"sub", {attribute_directory, false}},
                                                                      {"to sub", {attribute_directory, true}},
                                                                      {"to nowhere", {file, true}}};
        EXPECT_EQ(found, expected);
    }
    EXPECT_EQ(list_folder("f", "*LL*").size(), 1U);
    EXPECT_TRUE(list_folder("none").empty());
    EXPECT_TRUE(list_folder("f\\a").empty());
}

TEST(listing, masks_match_as_on_the_desktop) {
    const std::tuple<const char*, const char*, bool> cases[] = {
        {"*.*", "name", true},      {"*.*", ".TVS_project", true},
        {"*", "a.b", true},         {"*.tvn", "a.TVN", true},
        {"*.tvn", "a.tvn2", false}, {"*.tvn", "tvn", false},
        {"a?c", "abc", true},       {"a?c", "ac", false},
        {"name.*", "NAME", true},   {"name.*", "name.x", true},
        {"name.*", "names", false}, {"*a*b*", "xxaxxbxx", true},
        {"*a*b*c", "abab", false},  {"", "a", false},
        {"\xC4*", "\xE4x", true}};
    for (const auto& [mask, name, matches] : cases)
        EXPECT_EQ(matches_mask(name, mask), matches) << mask << " " << name;
    EXPECT_FALSE(matches_mask(std::string(100'000, 'a'), "*a*a*a*a*a*a*b"));
}
