#include "platform/files.h"

#include "platform/file_writer.h"
#include "support/temporary_drives.h"

#include <ctime>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <numeric>
#include <set>
#include <sys/stat.h>
#include <unistd.h>

using namespace platform;
namespace fs = std::filesystem;

namespace {

struct files : testing::Test {
    Temporary_drives drives;

    // One of each: "file", "empty", "locked" (without write permission), "folder" (empty), "tree", "pipe",
    // and the links "to file", "to folder", "to nowhere" and "circle".
    files() {
        drives.write("file", "text");
        drives.write("empty");
        drives.write("locked", "old");
        fs::permissions(drives.host("locked"), fs::perms(0444));
        fs::create_directory(drives.host("folder"));
        drives.write("tree/below/deep", "deep");
        mkfifo(drives.host("pipe").c_str(), 0600);
        fs::create_symlink("file", drives.host("to file"));
        fs::create_symlink("tree", drives.host("to folder"));
        fs::create_symlink("nowhere", drives.host("to nowhere"));
        fs::create_symlink("circle", drives.host("circle"));
    }

    // The paths below a folder of c: with what stands there.
    std::string picture(const std::string& folder) const {
        std::set<std::string> lines;
        for (const auto& entry : fs::recursive_directory_iterator(drives.host(folder))) {
            const std::string path = entry.path().lexically_relative(drives.host());
            const std::string below = entry.path().lexically_relative(drives.host(folder));
            lines.insert(below +
                         (entry.is_symlink()        ? " -> " + fs::read_symlink(entry.path()).string()
                          : entry.is_regular_file() ? " = " + drives.read(path)
                                                    : "") +
                         "\n");
        }
        return std::accumulate(lines.begin(), lines.end(), std::string());
    }
};

} // namespace

TEST_F(files, each_kind_of_entry_is_told_and_read_or_refused) {
    using Kind = Entry_kind;
    using Outcome = Read_outcome;
    const std::tuple<std::vector<std::string>, Entry_kind, bool, Read_outcome, const char*> cases[] = {
        {{"file", "FILE"}, Kind::file, false, Outcome::read, "text"},
        {{"empty"}, Kind::file, false, Outcome::read, ""},
        {{"folder", "folder\\"}, Kind::folder, false, Outcome::unreadable, ""},
        {{"pipe", "z:\\dev\\zero"}, Kind::other, false, Outcome::unreadable, ""},
        {{"to file"}, Kind::file, true, Outcome::read, "text"},
        {{"to folder"}, Kind::folder, true, Outcome::unreadable, ""},
        {{"to nowhere", "circle"}, Kind::absent, true, Outcome::absent, ""},
        {{"none", "file\\", "file\\x", "q:\\file"}, Kind::absent, false, Outcome::absent, ""}};
    for (const auto& [names, kind, link, outcome, contents] : cases)
        for (const std::string& name : names) {
            EXPECT_EQ(entry_kind(name), kind) << name;
            EXPECT_EQ(exists(name), kind != Kind::absent) << name;
            EXPECT_EQ(is_link(name), link) << name;
            const Read_result result = read_file(name);
            EXPECT_EQ(result.outcome, outcome) << name;
            EXPECT_EQ(result.contents, contents) << name;
        }
    EXPECT_EQ(read_file("file", 4).contents, "text");
    EXPECT_EQ(read_file("file", 3).outcome, Outcome::too_large);
    // The size of such a file is not known before it is read.
    EXPECT_FALSE(read_file("z:\\proc\\self\\status").contents.empty());
    EXPECT_EQ(read_file("z:\\proc\\self\\status", 5).outcome, Outcome::too_large);

    EXPECT_EQ(attributes("file"), attribute_archive);
    EXPECT_EQ(attributes("locked"), attribute_archive | attribute_read_only);
    EXPECT_EQ(attributes("to folder"), attribute_directory);
    EXPECT_EQ(attributes("none"), std::nullopt);
}

TEST_F(files, the_time_of_a_file_is_packed_in_local_time) {
    drives.write("file");
    // the date above the time (unsigned packed;)
    const std::tuple<const char*, unsigned> cases[] = {{"2024-03-05 13:58:59", 0x5865'6F5D},
                                                       {"1960-01-01 12:00:00", 0x0021'0000},
                                                       {"2200-01-01 12:00:00", 0xFF9F'BF7D}};
    for (const auto& [text, expected] : cases) {
        std::tm time{};
        strptime(text, "%Y-%m-%d %H:%M:%S", &time);
        time.tm_isdst = -1;
        const timespec changed{mktime(&time), 0};
        const timespec times[2] = {changed, changed};
        utimensat(AT_FDCWD, drives.host("file").c_str(), times, 0);
        const auto packed = file_time("file");
        ASSERT_TRUE(packed);
        EXPECT_EQ(static_cast<unsigned>(packed->date) << 16 | packed->time, expected);
    }
    EXPECT_FALSE(file_time("none"));
    EXPECT_FALSE(file_time("c:\\"));
}

TEST_F(files, deleting_and_making_tell_what_came_of_it) {
    EXPECT_EQ(delete_file("FILE"), Delete_outcome::deleted);
    EXPECT_EQ(delete_file("file"), Delete_outcome::absent);
    EXPECT_EQ(delete_file("to nowhere"), Delete_outcome::deleted);
    EXPECT_EQ(delete_file("locked"), Delete_outcome::denied);
    EXPECT_EQ(delete_file("folder"), Delete_outcome::denied);
    EXPECT_EQ(delete_file("to folder"), Delete_outcome::deleted);
    EXPECT_EQ(drives.read("tree/below/deep"), "deep");

    EXPECT_FALSE(make_folder("a\\b"));
    EXPECT_TRUE(make_folder("a"));
    EXPECT_FALSE(make_folder("A"));
    EXPECT_TRUE(make_folders("A\\b\\c\\"));
    EXPECT_TRUE(make_folders("a\\B\\c"));
    EXPECT_TRUE(fs::is_directory(drives.host("a/b/c")));
    EXPECT_FALSE(make_folders("locked\\x"));
    EXPECT_FALSE(make_folders("a\\x:y"));

    EXPECT_FALSE(remove_folder("tree"));
    EXPECT_FALSE(remove_folder("locked"));
    drives.write("folder/.~saving-0123456789ab");
    EXPECT_TRUE(remove_folder("Folder"));
    EXPECT_FALSE(exists("folder"));
}

TEST_F(files, a_tree_is_removed_without_following_links_out_of_it) {
    drives.write("doomed/below/locked");
    fs::permissions(drives.host("doomed/below/locked"), fs::perms(0400));
    drives.write("doomed/..\\..\\tree");
    drives.write("doomed/\xFF/.hidden");
    fs::create_symlink("../tree", drives.host("doomed/link"));
    fs::create_symlink(".", drives.host("doomed/loop"));
    EXPECT_TRUE(remove_tree("DOOMED"));
    EXPECT_FALSE(exists("doomed"));
    EXPECT_TRUE(remove_tree("doomed"));
    EXPECT_TRUE(remove_tree("to folder"));
    EXPECT_FALSE(is_link("to folder"));
    EXPECT_EQ(drives.read("tree/below/deep"), "deep");
    EXPECT_FALSE(remove_tree("c:\\"));
    EXPECT_FALSE(remove_tree(name_from_host_path(fs::path(drives.host()).parent_path().string())));
    EXPECT_TRUE(exists("file"));
}

TEST_F(files, a_copied_file_is_whole_and_takes_the_place_of_the_old_one) {
    const std::string large = std::string(3'000'000, 'x') + std::string(1, '\0') + "\r\n";
    drives.write("large", large);
    EXPECT_TRUE(copy_file("large", "COPY").ok());
    EXPECT_EQ(drives.read("COPY"), large);
    EXPECT_TRUE(copy_file("to file", "copy").ok());
    EXPECT_EQ(drives.read("COPY"), "text");
    EXPECT_TRUE(copy_file("locked", "unlocked").ok());
    EXPECT_FALSE(is_read_only("unlocked"));

    EXPECT_EQ(copy_file("file", "locked").error, Write_error::read_only);
    EXPECT_EQ(copy_file("file", "folder").error, Write_error::not_a_file);
    EXPECT_EQ(copy_file("pipe", "new").error, Write_error::not_a_file);
    EXPECT_EQ(copy_file("none", "new").error, Write_error::absent);
    EXPECT_EQ(copy_file("file", "none\\new").error, Write_error::absent);
    EXPECT_EQ(copy_file("file", "new\\").error, Write_error::bad_name);
    EXPECT_EQ(copy_file("file", "to file").error, Write_error::into_itself);
    File_faults faults;
    faults.fail(Write_step::write, ENOSPC, 2'000'000);
    EXPECT_EQ(copy_file("large", "copy").error, Write_error::no_space);
    EXPECT_EQ(copy_file("large", "new").error, Write_error::no_space);
    EXPECT_EQ(drives.read("COPY"), "text");
    EXPECT_FALSE(exists("new"));
}

TEST_F(files, a_tree_is_copied_with_its_links_and_merged_into_what_is_there) {
    drives.write("from/Notes.txt", "new");
    drives.write("from/both", "small");
    drives.write("from/Both", "large");
    drives.write("from/sub/\xFF", "bytes");
    drives.write("from/.~saving-0123456789ab", "left behind");
    fs::create_directories(drives.host("from/empty"));
    fs::create_symlink("sub/\xFF", drives.host("from/link"));
    fs::create_symlink("..", drives.host("from/loop"));
    const std::string head = "both = small\nempty\nlink -> sub/\xFF\nloop -> ..\n";
    const std::string tail = "sub\nsub/\xFF = bytes\n";
    EXPECT_TRUE(copy_tree("FROM", "to\\here").ok());
    EXPECT_EQ(picture("to/here"), "Both = large\nNotes.txt = new\n" + head + tail);

    drives.write("old/notes.TXT", "old");
    drives.write("old/zzz", "stays");
    drives.write("old/link", "a file");
    EXPECT_TRUE(copy_tree("from", "old").ok());
    EXPECT_EQ(picture("old"), "Both = large\n" + head + "notes.TXT = new\n" + tail + "zzz = stays\n");

    fs::create_directory_symlink("from/sub", drives.host("inside"));
    for (const char* target : {"from", "from\\sub\\new\\deep", "inside\\new", "FROM\\x"})
        EXPECT_EQ(copy_tree("from", target).error, Write_error::into_itself) << target;
    EXPECT_FALSE(exists("from\\sub\\new"));
    EXPECT_EQ(copy_tree("none", "x").error, Write_error::absent);
    EXPECT_EQ(copy_tree("from\\both", "x").error, Write_error::absent);

    // What has no copy is passed over and named.
    mkfifo(drives.host("from/sub/a pipe").c_str(), 0600);
    const Copy_result third = copy_tree("from", "third\\deep");
    EXPECT_TRUE(third.ok());
    EXPECT_EQ(third.passed_over, std::vector<std::string>{"C:\\from\\sub\\a pipe"});
    EXPECT_EQ(drives.read("third/deep/sub/\xFF"), "bytes");
}

TEST_F(files, a_copy_of_a_tree_is_all_of_it_or_nothing) {
    drives.write("from/a", "new a");
    drives.write("from/B", "new b");
    drives.write("from/sub/deep/c", "new c");
    const auto make_target = [&] {
        fs::remove_all(drives.host("none"));
        fs::remove_all(drives.host("to"));
        drives.write("to/b", "old b");
        drives.write("to/sub/d", "d");
    };
    make_target();
    EXPECT_EQ(replaced_by_copy("from", "to"), std::vector<std::string>{"C:\\to\\b"});
    EXPECT_TRUE(replaced_by_copy("from", "none").empty());
    const std::string before = picture("");
    constexpr int errors[] = {ENOSPC, EIO, EACCES, EMFILE, EINTR};
    std::size_t failures = 0;
    for (const std::string target : {"to", "none\\new"}) {
        bool has_failed = true;
        for (std::size_t call = 1; has_failed; ++call) {
            make_target();
            const int error = errors[call % std::size(errors)];
            File_faults faults;
            faults.fail_call(call, error, 1);
            const Copy_result result = copy_tree("from", target);
            has_failed = faults.call_has_failed();
            faults.clear();
            // It may have been a short write, after which the rest was written.
            if (result.ok()) {
                EXPECT_EQ(drives.read(target == "to" ? "to/b" : "none/new/B"), "new b");
                continue;
            }
            ++failures;
            EXPECT_EQ(result.error, write_result_from_errno(error).error);
            EXPECT_TRUE(result.not_copied.size() == 1 && !result.reason.empty()) << call;
            EXPECT_EQ(picture(""), before) << target << " call " << call;
        }
    }
    EXPECT_GT(failures, 30U);
    make_target();
    EXPECT_TRUE(copy_tree("from", "to").ok());
    EXPECT_EQ(picture("to"), "a = new a\nb = new b\nsub\nsub/d = d\nsub/deep\nsub/deep/c = new c\n");

    // A file that may not be replaced is found before anything is made.
    fs::permissions(drives.host("to/a"), fs::perms(0444));
    drives.write("from/a", "newer");
    drives.write("from/B", "newer");
    const Copy_result refused = copy_tree("from", "to");
    EXPECT_EQ(refused.error, Write_error::read_only);
    EXPECT_EQ(refused.not_copied, std::vector<std::string>{"C:\\to\\a"});
    EXPECT_EQ(drives.read("to/b"), "new b");
}
