#include "platform/listing.h"

#include "platform/files.h"
#include "support/temporary_drives.h"

#include <gtest/gtest.h>
#include <set>
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
        std::set<std::string> found;
        for (const Folder_entry& entry : list_folder("F", "*.*", asked))
            found.insert(entry.name + ' ' + std::to_string(entry.attributes) +
                         (entry.is_link ? " link" : ""));
        std::set<std::string> expected = {
            "a 32",   "A 32",           ".point 32",         "M\xFCller 32", ".~saving-mine 32",
            "sub 16", "to sub 16 link", "to nowhere 32 link"};
        expected.insert(asked == Listed_attributes::all ? "locked 33" : "locked 32");
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
