#include "platform/file_writer.h"

#include "platform/append_file.h"
#include "platform/file_stream.h"
#include "platform/files.h"
#include "platform/in_place_save.h"
#include "platform/interrupted_save.h"
#include "platform/listing.h"
#include "platform/moving.h"
#include "support/failing_step.h"
#include "support/temporary_drives.h"

#include <cerrno>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace platform;
namespace fs = std::filesystem;

namespace {

// c: with the file "file" that holds "old text".
class file_writer : public testing::Test {
protected:
    file_writer() { drives.write("file", "old text"); }

    static mode_t mode_of(const std::string& path) {
        struct stat state {};
        stat(path.c_str(), &state);
        return state.st_mode & 07777;
    }

    Temporary_drives drives;
};

constexpr Durability all_durabilities[] = {Durability::durable, Durability::quick};

} // namespace

// As of a user who may write to a folder but not list it, or of a disk with a fault.
TEST_F(file_writer, a_name_that_may_stand_there_in_another_spelling_is_neither_absent_nor_made) {
    fs::create_directory(drives.host("sub"));
    const Failing_step unlisted(Write_step::list, EACCES);
    for (const char* name : {"FILE", "SUB\\file"}) {
        EXPECT_EQ(write_file(name, "new", Durability::durable).error, Write_error::no_permission);
        EXPECT_EQ(copy_file("file", name).error, Write_error::no_permission);
        EXPECT_EQ(Append_file(name).ready().error, Write_error::no_permission);
        EXPECT_FALSE(File_stream(name, true).good());
        EXPECT_EQ(read_file(name).outcome, Read_outcome::unreadable);
        EXPECT_EQ(delete_file(name), Delete_outcome::failed);
        EXPECT_FALSE(remove_tree(name) || make_folder(name) || make_folders(name));
    }
    EXPECT_FALSE(copy_tree("sub", "SUB2").ok() || move_entry("file", "FILE2").ok());
    EXPECT_EQ(count_entries(drives.host()), 2);
}

TEST_F(file_writer, replaces_the_contents_and_keeps_the_permissions) {
    const std::string contents("a\r\nb\n\0\xFF", 7);
    chmod(drives.host("file").c_str(), 0640);
    // Only root can give files away.
    const bool given_away = chown(drives.host("file").c_str(), 12345, 23456) == 0;
    for (const Durability durability : all_durabilities) {
        EXPECT_TRUE(write_file("FILE", contents, durability).ok());
        EXPECT_EQ(drives.read("file"), contents);
        EXPECT_TRUE(write_file("file", "", durability).ok());
        EXPECT_EQ(drives.read("file"), "");
    }
    EXPECT_EQ(mode_of(drives.host("file")), 0640U);
    struct stat state {};
    stat(drives.host("file").c_str(), &state);
    EXPECT_EQ(state.st_uid == 12345 && state.st_gid == 23456, given_away);

    const mode_t old_mask = umask(027);
    EXPECT_TRUE(write_file("new", "x", Durability::quick).ok());
    umask(old_mask);
    EXPECT_EQ(mode_of(drives.host("new")), 0640U);
    EXPECT_EQ(count_entries(drives.host()), 2);
}

TEST_F(file_writer, writes_the_target_of_a_link) {
    fs::create_directory(drives.host("sub"));
    fs::create_symlink("../file", drives.host("sub/link"));
    fs::create_symlink("sub/link", drives.host("chain"));
    fs::create_symlink("sub/new", drives.host("dangling"));
    fs::create_symlink("circle", drives.host("circle"));
    EXPECT_TRUE(write_file("chain", "new", Durability::durable).ok());
    EXPECT_TRUE(is_link("chain") && is_link("sub\\link") && !is_link("file"));
    EXPECT_EQ(drives.read("file"), "new");
    EXPECT_TRUE(write_file("dangling", "made", Durability::durable).ok());
    EXPECT_EQ(drives.read("sub/new"), "made");
    EXPECT_EQ(write_file("circle", "x", Durability::durable).error, Write_error::bad_name);
}

TEST_F(file_writer, refuses_what_is_no_writable_file) {
    chmod(drives.host("file").c_str(), 0444);
    fs::create_directory(drives.host("folder"));
    mkfifo(drives.host("pipe").c_str(), 0600);
    const std::tuple<const char*, Write_error> cases[] = {
        {"file", Write_error::read_only},  {"folder", Write_error::not_a_file},
        {"pipe", Write_error::not_a_file}, {"none\\x", Write_error::absent},
        {"file\\x", Write_error::absent},  {"new\\", Write_error::bad_name},
        {"a:b", Write_error::bad_name},    {"", Write_error::bad_name}};
    for (const auto& [name, error] : cases) {
        const Write_result result = write_file(name, "x", Durability::quick);
        EXPECT_EQ(result.error, error) << name;
        EXPECT_FALSE(result.reason.empty()) << name;
    }
    EXPECT_EQ(write_file(std::string(300, 'n'), "x", Durability::quick).error, Write_error::bad_name);
    EXPECT_EQ(drives.read("file"), "old text");
    EXPECT_EQ(count_entries(drives.host()), 3);
}

TEST_F(file_writer, a_fault_at_any_step_leaves_the_old_file_and_nothing_beside_it) {
    const std::tuple<Write_step, int, std::size_t, Write_error> cases[] = {
        {Write_step::create, ENOSPC, 0, Write_error::no_space},
        {Write_step::write, ENOSPC, 0, Write_error::no_space},
        {Write_step::write, EDQUOT, 3, Write_error::no_space},
        {Write_step::flush, EIO, 0, Write_error::device_fault},
        {Write_step::set_permissions, EIO, 0, Write_error::device_fault},
        {Write_step::rename, EIO, 0, Write_error::device_fault},
        {Write_step::rename, 9999, 0, Write_error::other}};
    for (const auto& [step, number, after_bytes, error] : cases) {
        File_faults faults;
        faults.fail(step, number, after_bytes);
        const Write_result result = write_file("file", "new text", Durability::durable);
        EXPECT_EQ(result.error, error);
        EXPECT_FALSE(result.reason.empty());
        EXPECT_EQ(drives.read("file"), "old text");
        if (step != Write_step::set_permissions) {
            EXPECT_EQ(write_file("other", "new text", Durability::durable).error, error);
            EXPECT_FALSE(exists("other"));
        }
        EXPECT_EQ(count_entries(drives.host()), 1);
        faults.clear();
        EXPECT_TRUE(write_file("file", "old text", Durability::durable).ok());
    }
    File_faults faults;
    faults.fail(Write_step::flush, EIO);
    faults.fail(Write_step::flush_folder, EIO);
    // Only where there is nothing to lose the disk need not be waited for.
    EXPECT_EQ(write_file("file", "quick", Durability::quick).error, Write_error::device_fault);
    EXPECT_EQ(drives.read("file"), "old text");
    EXPECT_TRUE(write_file("quick", "", Durability::quick).ok());
    EXPECT_TRUE(write_file("quick", "quick", Durability::quick).ok());
    faults.clear();
    faults.fail(Write_step::flush_folder, EIO);
    EXPECT_EQ(write_file("file", "new text", Durability::durable).error, Write_error::device_fault);
    EXPECT_EQ(drives.read("file"), "new text");
}

TEST_F(file_writer, a_file_that_cannot_be_replaced_is_written_in_place) {
    fs::create_hard_link(drives.host("file"), drives.host("twin"));
    for (const std::string& contents :
         {std::string("longer than the old text"), std::string("short"), std::string()})
        for (const Durability durability : all_durabilities) {
            EXPECT_TRUE(write_file("file", contents, durability).ok());
            EXPECT_EQ(drives.read("twin"), contents);
        }
    fs::remove(drives.host("twin"));

    for (const Write_step step : {Write_step::create, Write_step::rename}) {
        File_faults faults;
        faults.fail(step, EACCES);
        EXPECT_TRUE(write_file("file", "in place", Durability::durable).ok());
        EXPECT_EQ(drives.read("file"), "in place");
        EXPECT_EQ(write_file("new", "x", Durability::durable).error, Write_error::no_permission);
    }
    EXPECT_EQ(count_entries(drives.host()), 1);
    EXPECT_EQ(count_entries(rescue_folder()), 0);
}

TEST_F(file_writer, a_fault_in_place_brings_the_old_contents_back_or_keeps_their_copy) {
    fs::create_hard_link(drives.host("file"), drives.host("twin"));
    const std::tuple<Write_step, std::size_t, const char*> cases[] = {
        {Write_step::copy_aside, 0, "new"},     {Write_step::write_in_place, 0, "new"},
        {Write_step::copy_aside, 3, "new"},     {Write_step::write_in_place, 2, "longer than the old text"},
        {Write_step::write_in_place, 2, "new"}, {Write_step::write_in_place, 18, "longer than the old text"},
        {Write_step::flush, 0, "new"},          {Write_step::flush, 0, "longer than the old text"}};
    for (const auto& [step, after_bytes, contents] : cases) {
        File_faults faults;
        faults.fail(step, ENOSPC, after_bytes);
        EXPECT_EQ(write_file("file", contents, Durability::durable).error, Write_error::no_space);
        EXPECT_EQ(drives.read("twin"), "old text");
        EXPECT_EQ(count_entries(rescue_folder()), 0);
    }
    File_faults faults;
    faults.fail(Write_step::write_in_place, EIO, 2);
    faults.fail(Write_step::write_back, EIO, 1);
    const Write_result result = write_file("file", "new", Durability::durable);
    EXPECT_EQ(result.error, Write_error::device_fault);
    const std::size_t name = result.reason.find("Z:\\");
    ASSERT_NE(name, std::string::npos) << result.reason;
    EXPECT_EQ(read_file(result.reason.substr(name, result.reason.size() - name - 1)).contents, "old text");
}

TEST_F(file_writer, what_killed_saves_left_is_cleared_unless_somebody_holds_it) {
    const auto unfinished = [&](const char* digits) {
        return drives.host("sub/.~saving-" + std::string(digits));
    };
    for (const char* digits : {"000000000001", "000000000002", "000000000003/below", "00000000000x"}) {
        fs::create_directories(fs::path(unfinished(digits)).parent_path());
        std::ofstream(unfinished(digits)) << "half";
    }
    fs::create_symlink("nowhere", unfinished("000000000004"));
    const int held = open(unfinished("000000000002").c_str(), O_RDONLY);
    flock(held, LOCK_EX);
    EXPECT_TRUE(write_file("sub\\x", "text", Durability::quick).ok());
    // A link cannot be held; this one is too young to be left behind.
    EXPECT_EQ(count_entries(drives.host("sub")), 4);
    EXPECT_TRUE(fs::exists(unfinished("000000000002")) && fs::exists(unfinished("00000000000x")));
    close(held);
}

TEST_F(file_writer, the_contents_before_an_interrupted_save_are_found_and_brought_back) {
    fs::create_hard_link(drives.host("file"), drives.host("twin"));
    drives.write("other", "other text");
    EXPECT_FALSE(interrupted_save("file"));
    const auto damage = [&] {
        drives.write("file", "old text");
        File_faults faults;
        faults.fail(Write_step::write_in_place, EIO, 2);
        faults.fail(Write_step::write_back, EIO, 1);
        EXPECT_FALSE(write_file("file", "new", Durability::durable).ok());
        EXPECT_EQ(drives.read("file"), "oed text");
    };
    const auto is_aside = [&](bool expected) {
        EXPECT_EQ(interrupted_save("file").has_value(), expected);
        EXPECT_EQ(count_entries(rescue_folder()), expected ? 2 : 0);
    };
    damage();
    EXPECT_FALSE(interrupted_save("other"));
    const auto save = interrupted_save("twin");
    ASSERT_TRUE(save);
    EXPECT_EQ(read_file(save->copy).contents, "old text");
    EXPECT_TRUE(restore("twin", *save).ok());
    EXPECT_EQ(drives.read("file"), "old text");
    is_aside(false);

    damage();
    discard(*interrupted_save("file"));
    is_aside(false);
    // Whatever wrote it since: it is what the save was to write, or what there was before.
    for (const char* whole : {"new", "old text"}) {
        damage();
        is_aside(true);
        drives.write("file", whole);
        is_aside(false);
    }
    // A copy without a record was not whole when the program was killed.
    std::ofstream(rescue_folder() + "/file-0.copy") << "old";
    is_aside(false);

    damage();
    EXPECT_TRUE(write_file("file", "whole", Durability::durable).ok());
    is_aside(false);
    damage();
    if (mark_of(AT_FDCWD, drives.host("file").c_str()).born == 0)
        return; // the file system of the test does not tell when a file was made
    fs::rename(drives.host("file"), drives.host("moved"));
    drives.write("file", "another");
    EXPECT_TRUE(interrupted_save("moved") && interrupted_save("twin") && !interrupted_save("file"));
}
