#include "operations/change_backups.h"

#include "support/failing_step.h"
#include "support/temporary_drives.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace {

class Change_backups_test : public testing::Test {
protected:
    Change_backups_test() { std::filesystem::create_directory(drives.host("p")); }

    static std::string name(const std::string& file) { return "C:\\p\\Scenarios\\" + file; }
    void put(const std::string& file, const std::string& text) const {
        drives.write("p/Scenarios/" + file, text);
    }
    // What the files hold, "-" for those that are not there.
    std::string contents(const std::vector<std::string>& files = {"a", "b", "new", "run/x"}) const {
        std::string text;
        for (const std::string& file : files)
            text += (std::filesystem::exists(drives.host("p/Scenarios/" + file))
                         ? drives.read("p/Scenarios/" + file)
                         : "-") +
                    ' ';
        return text;
    }
    // Replaces two files, makes one, and takes a folder away.
    void change() {
        EXPECT_TRUE(backups.put_copies_aside("reset", {name("a"), name("b"), name("new")}, {}).ok());
        put("a", "A");
        put("b", "B");
        put("new", "N");
    }
    long sets() const { return count_entries(drives.host("p/backups")); }

    Temporary_drives drives;
    Change_backups backups{TESK::Directory_name(std::string("C:\\p\\"))};
};

TEST_F(Change_backups_test, an_undo_brings_everything_back_and_can_be_undone_again_and_again) {
    put("a", "a");
    put("b", "b");
    put("run/x", "x");
    change();
    EXPECT_TRUE(backups.announce("deletion", {name("run"), name("never")}).ok());
    EXPECT_TRUE(backups.move(name("run")).ok());
    ASSERT_EQ(backups.list().size(), 2U);
    EXPECT_EQ(backups.list()[1].operation, "reset");
    EXPECT_EQ(contents(), "A B N - ");

    EXPECT_EQ(backups.undo_last({}).done, 1U);
    EXPECT_EQ(contents(), "A B N x ");
    EXPECT_EQ(backups.undo_last({}).done, 1U);
    EXPECT_EQ(contents(), "A B N - ");
    // What somebody has changed since is not lost either.
    put("b", "later");
    std::filesystem::last_write_time(platform::host_path(name("b")),
                                     std::filesystem::file_time_type::clock::now() + std::chrono::hours(1));
    std::vector<std::string> changed;
    const auto take_changed = [&](const auto&, const std::vector<std::string>& names) {
        changed = names;
        return std::string();
    };
    EXPECT_EQ(backups.undo(backups.list()[1].set, {}, take_changed).done, 3U);
    EXPECT_EQ(changed, std::vector<std::string>{"Scenarios\\b"});
    EXPECT_EQ(contents(), "a b - - ");
    EXPECT_EQ(backups.list()[0].operation, "undo of reset");
    EXPECT_EQ(backups.undo_last({}).done, 3U);
    EXPECT_EQ(contents(), "A later N - ");
}

TEST_F(Change_backups_test, an_undo_that_is_cut_off_anywhere_loses_nothing) {
    for (std::size_t last = 0; last < 4; ++last) {
        std::filesystem::remove_all(drives.host("p"));
        put("a", "a");
        put("b", "b");
        change();
        const auto cut_off = [last](std::size_t done, std::size_t) {
            return done < last ? true : throw std::runtime_error("killed");
        };
        try {
            backups.undo_last(cut_off);
        } catch (const std::runtime_error&) {
        }
        const std::string cut_state = contents();
        std::string reset;
        for (const Change_backups::Change& one : backups.list())
            reset = one.operation == "reset" ? one.set : reset;
        backups.undo(reset, {});
        EXPECT_EQ(contents(), "a b - - ") << last;
        if (last < 3) {
            backups.undo_last({});
            EXPECT_EQ(contents(), cut_state) << last;
        }
    }
}

TEST_F(Change_backups_test, a_set_counts_only_when_all_of_it_is_on_the_disk) {
    put("a", "a");
    put("b", "b");
    const auto expect_none = [this](const Operation_outcome& outcome) {
        EXPECT_TRUE(!outcome.refused.empty() || outcome.stopped);
        EXPECT_EQ(sets(), 0) << outcome.refused;
    };
    for (const platform::Write_step step : {platform::Write_step::write, platform::Write_step::flush}) {
        const Failing_step full_disk(step, ENOSPC);
        expect_none(backups.put_copies_aside("reset", {name("a"), name("b")}, {}));
    }
    expect_none(backups.put_copies_aside("reset", {name("a"), name("b")},
                                         [](std::size_t done, std::size_t) { return done < 1; }));
    for (const char* outside : {"C:\\other.tvn", "C:\\p", "C:\\p\\Scenarios\\two\nlines.tvn"})
        expect_none(backups.put_copies_aside("reset", {outside}, {}));
    EXPECT_EQ(backups.undo_last({}).refused, "There is no change that could be undone.");
    {
        const Failing_step unreadable(platform::Write_step::list, EIO);
        EXPECT_TRUE(backups.undo_last({}).refused.starts_with("The folder cannot be read: "));
        expect_none(backups.put_copies_aside("reset", {name("a")}, {}));
    }

    // A set from elsewhere reaches nothing outside of the project.
    drives.write("secret", "s");
    drives.write("p/backups/0001 2020-01-01 00-00-00 reset/changes.txt",
                 "operation=reset\nmade=..\\secret\nmade=C:\\secret\nmade=Scenarios/../../secret\n");
    EXPECT_FALSE(backups.undo_last({}).refused.empty());
    EXPECT_EQ(drives.read("secret"), "s");
}

TEST_F(Change_backups_test, the_newest_ten_are_kept_and_no_more_than_fits) {
    put("a", "a");
    drives.write("p/backups/mine.txt", "m");
    drives.write("p/backups/0007 2020-01-01 00-00-00 reset/files/Scenarios/cut off", "");
    for (std::size_t i = 0; i < Change_backups::most_kept + 3; ++i)
        EXPECT_TRUE(backups.put_copies_aside("reset", {name("a")}, {}).ok());
    EXPECT_EQ(backups.list().size(), Change_backups::most_kept);
    EXPECT_EQ(sets(), static_cast<long>(Change_backups::most_kept + 1));
    EXPECT_TRUE(backups.list()[0].set.starts_with("0020 "));

    // As large as it may be, and without a byte on the disk.
    put("large", "");
    std::filesystem::resize_file(drives.host("p/Scenarios/large"), Change_backups::most_bytes - 1);
    EXPECT_TRUE(Change_backups::need({name("large")}).fits());
    EXPECT_TRUE(backups.announce("deletion", {name("large")}).ok());
    EXPECT_EQ(backups.list().size(), 2U); // one byte is left for what was before
    put("b", "12");
    EXPECT_EQ(Change_backups::need({name("large"), name("b"), name("gone")}).entries, 2U);
    EXPECT_FALSE(Change_backups::need({name("large"), name("b")}).fits());
    EXPECT_FALSE(backups.announce("deletion", {name("large"), name("b")}).refused.empty());
}

} // namespace
