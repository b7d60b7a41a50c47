#include "platform/folder_watch.h"

#include "platform/file_writer.h"
#include "platform/files.h"
#include "support/temporary_drives.h"

#include <gtest/gtest.h>
#include <poll.h>

using namespace platform;
namespace fs = std::filesystem;

namespace {

struct folder_watch : testing::Test {
    Temporary_drives drives;
    Folder_watch watch;

    bool is_readable() const {
        pollfd waiting{watch.descriptor(), POLLIN, 0};
        return poll(&waiting, 1, 0) == 1;
    }
    // The numbers of the watches that have changed, "!" behind those that have ended.
    std::string changes() {
        std::string text;
        for (const Folder_watch::Change& change : watch.take_changes())
            text += std::to_string(change.watch) + (change.has_ended ? "! " : " ");
        return text;
    }
};

} // namespace

TEST_F(folder_watch, tells_once_in_which_folders_and_files_something_has_changed) {
    drives.write("a/record", "old");
    drives.write("b/other");
    EXPECT_EQ(watch.watch_folder("A"), 1);
    EXPECT_EQ(watch.watch_folder("b"), 2);
    EXPECT_EQ(watch.watch_file("a\\RECORD"), 3);
    EXPECT_EQ(watch.watch_file("b\\not yet"), 4);
    EXPECT_FALSE(is_readable());
    EXPECT_EQ(changes(), "");

    EXPECT_TRUE(write_file("a\\record", "new", Durability::durable).ok());
    EXPECT_TRUE(is_readable());
    EXPECT_EQ(changes(), "1 3 ");
    EXPECT_FALSE(is_readable());
    drives.write("a/second");
    fs::rename(drives.host("a/second"), drives.host("b/not yet"));
    EXPECT_EQ(changes(), "1 2 4 ");
    EXPECT_EQ(read_file("a\\record").contents, "new");
    EXPECT_EQ(changes(), "");

    watch.forget(1);
    EXPECT_EQ(delete_file("a\\record"), Delete_outcome::deleted);
    EXPECT_EQ(changes(), "3 ");
    // A folder that is gone, or has another name, is watched no more.
    fs::rename(drives.host("a"), drives.host("c"));
    EXPECT_TRUE(remove_tree("b"));
    EXPECT_EQ(changes(), "2! 3! 4! ");
    drives.write("c/record");
    EXPECT_EQ(changes(), "");
}

TEST_F(folder_watch, says_what_it_cannot_watch) {
    drives.write("file");
    for (const char* name : {"none", "file", "", "q:\\"})
        EXPECT_FALSE(watch.watch_folder(name)) << name;
    for (const char* name : {"none\\x", "file\\x", "", "q:\\x"})
        EXPECT_FALSE(watch.watch_file(name)) << name;
    for (std::size_t i = 0; i < Folder_watch::most_watches; ++i)
        ASSERT_TRUE(watch.watch_file(std::to_string(i)));
    EXPECT_FALSE(watch.watch_file("file"));
    watch.forget(7);
    EXPECT_TRUE(watch.watch_file("file"));
}
