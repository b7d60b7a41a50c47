#include "runs/run_journal.h"

#include "platform/files.h"
#include "runs/run_project.h"

namespace {

using Outcome = Run_record::Outcome;

Run_record ended(Outcome outcome, int code, bool left_output, double seconds) {
    Run_record record;
    record.outcome = outcome;
    record.code = code;
    record.left_output = left_output;
    record.seconds = seconds;
    return record;
}

class Run_journal_test : public testing::Test {
protected:
    Run_journal_test() { platform::make_folder(folder); }

    Temporary_drives drives;
    const std::string folder = "C:\\set";
};

TEST_F(Run_journal_test, a_journal_cut_at_any_byte_tells_what_its_whole_lines_say) {
    Journal_writer writer(folder);
    writer.own();
    writer.start(0);
    writer.end(0, ended(Outcome::exited, 0, true, 1.5));
    writer.start(1);
    writer.end(1, ended(Outcome::signalled, 11, false, 12.034));
    writer.end(2, ended(Outcome::lost, 0, false, 0), "NODE_FAIL");
    writer.leave("done");
    const std::string whole = drives.read("set/journal.txt");
    for (std::size_t size = 0; size <= whole.size(); ++size) {
        drives.write("set/journal.txt", whole.substr(0, size));
        Run_journal cut(folder, 3);
        cut.update();
        const auto lines = std::count(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size), '\n');
        EXPECT_EQ(cut.owner().has_value(), lines >= 1 && lines < 7) << size;
        EXPECT_EQ(cut.runs()[0].is_done(), lines >= 3) << size;
        EXPECT_EQ(cut.runs()[1].has_failed(), lines >= 5) << size;
        // Whoever goes on after the cut loses nothing, and completes a line that lacks its end alone.
        const auto known = lines + (size < whole.size() && whole[size] == '\n' ? 1 : 0);
        Journal_writer(folder).end(2, ended(Outcome::exited, 4, false, 1));
        cut.update();
        EXPECT_EQ(cut.runs()[2].has_failed(), true) << size;
        EXPECT_EQ(cut.runs()[0].is_done(), known >= 3) << size;
        EXPECT_EQ(cut.runs()[1].code, known >= 5 ? 11 : 0) << size;
    }
}

TEST_F(Run_journal_test, an_owner_counts_until_it_has_left_whoever_comes_in_between) {
    Journal_writer writer(folder);
    ASSERT_TRUE(claim_set(folder, 1, writer));
    EXPECT_FALSE(claim_set(folder, 1, writer));
    Run_journal journal(folder, 1);
    journal.update();
    EXPECT_TRUE(is_owned(journal));
    platform::Process_identity other = platform::own_identity();
    other.started += '1';
    writer.leave("done", other);
    journal.update();
    EXPECT_TRUE(is_owned(journal)) << "another one has left";
    writer.leave("done");
    journal.update();
    EXPECT_FALSE(is_owned(journal));

    // One that was killed, then one of another machine.
    drives.write("set/journal.txt", "owner 2026-01-01T00:00:00.000Z " + text_of(other) + " .\n");
    EXPECT_TRUE(claim_set(folder, 1, writer));
    other.host = "elsewhere";
    drives.write("set/journal.txt", "owner 2026-01-01T00:00:00.000Z " + text_of(other) + " .\n");
    EXPECT_FALSE(claim_set(folder, 1, writer));
}

TEST_F(Run_journal_test, what_is_no_line_of_a_journal_is_passed_over) {
    drives.write("set/journal.txt", "end 2026-01-01T00:00:00.000Z 99999999999999999999 exit 0 1 output .\n"
                                    "end 2026-13-01T00:00:00.000Z 0 exit 0 1 output .\n"
                                    "end 2026-01-01T00:00:00.000Z 7 exit 0 1 output .\n"
                                    "end 2026-01-01T00:00:00.000Z 0 vanished 0 1 output .\n"
                                    "end 2026-01-01T00:00:00.000Z 0 exit zero 1 output .\n"
                                    "start .\n \n\n .\nowner 2026-01-01T00:00:00.000Z me .\n" +
                                        std::string(100000, 'x') + " .\n" + std::string(300, '\0') +
                                        "end 2026-01-01T00:00:01.500Z 1 exit 0 1.5 output .\n");
    Run_journal journal(folder, 2);
    EXPECT_TRUE(journal.update());
    EXPECT_EQ(journal.runs()[0].outcome, Outcome::waiting);
    EXPECT_FALSE(journal.owner());
    EXPECT_FALSE(journal.update());
}

TEST_F(Run_journal_test, tells_how_far_a_set_is) {
    Journal_writer writer(folder);
    writer.own();
    for (std::size_t run = 0; run < 1000; ++run)
        writer.end(run, ended(Outcome::exited, run < 3 ? 1 : 0, true, 2));
    writer.start(1000);
    const Run_journal journal = journal_of(folder, 10000);
    const Moment later = journal.owned_since() + Moment{90} * 1000;
    EXPECT_EQ(describe(progress_of(journal, true, later)), "997 of 10,000 done, 3 failed, about 14 min left");
    EXPECT_EQ(describe(progress_of(journal, false, later)),
              "997 of 10,000 done, 3 failed, 1 stopped, 8,999 waiting");
    EXPECT_EQ(text_of_moment(951782400123), "2000-02-29T00:00:00.123Z");
}

TEST_F(Run_journal_test, a_set_is_written_down_as_it_was_asked_for) {
    Run_project project;
    Run_set set = project.set_of({"a", "b = \344\366"}, 3);
    set.report_format = "";
    set.engine = Engine_kind::slurm;
    set.longest = std::chrono::seconds(90);
    set.slurm = {"main", "1:00", "2G", "--nice=5 --exclude=n1"};
    const std::string folder_of_set = project.make(set);
    EXPECT_EQ(text_of(*read_run_set(folder_of_set)), text_of(set));
    EXPECT_EQ(set.command_line(0), "\"C:\\model.exe\"  \"\"  \"C:\\p.tvp\" \"C:\\p\\Scenarios\\a.tvn\" ");
    set.report_format.reset();
    EXPECT_EQ(set.command_line(1),
              "\"C:\\model.exe\"  \"C:\\p.tvp\" \"C:\\p\\Scenarios\\b = \344\366.tvn\" ");
    EXPECT_FALSE(run_set_from_text(text_of(set).substr(0, text_of(set).size() - 3)));

    EXPECT_EQ(list_run_sets(project.runs_folder), std::vector<std::string>{folder_of_set});
    EXPECT_TRUE(delete_run_set(folder_of_set, true));
    EXPECT_TRUE(list_run_sets(project.runs_folder).empty());
    set.scenarios.push_back("C:\\a\" \"C:\\b.tvn");
    EXPECT_FALSE(make_run_set(project.runs_folder, set).result.ok());
}

} // namespace
