#include "frame_support.h"

#include "platform/interrupted_save.h"

#include <sys/stat.h>

using Edited_file_test = Parameter_file_form;

TEST_F(Edited_file_test, a_save_that_fails_asks_until_the_cause_is_gone_or_the_user_gives_up) {
    ASSERT_TRUE(bind());
    const std::string before = saved("work/study.tvp");
    describe("full");
    {
        const Full_disk full_disk;
        expect(failing(Modal_result::retry));
        expect(failing(Modal_result::abort));
        EXPECT_TRUE(form.ok_button.click());
        EXPECT_TRUE(form.visible());
        expect(failing(Modal_result::abort));
        EXPECT_FALSE(form.run("C:\\p.exe", nullptr, "x", nullptr, false, show_normal));
        EXPECT_EQ(launcher.started, "");
        expect(failing(Modal_result::ignore));
        EXPECT_TRUE(form.run("C:\\p.exe", nullptr, "x", nullptr, false, show_normal));
    }
    EXPECT_EQ(saved("work/study.tvp"), before);
    EXPECT_TRUE(form.has_changes());
    const auto file = drives.host("work/study.tvp");
    std::filesystem::permissions(file, std::filesystem::perms::owner_read);
    expect(failing(Modal_result::ignore));
    EXPECT_TRUE(form.ok_button.click());
    EXPECT_FALSE(form.visible());
    EXPECT_EQ(saved("work/study.tvp"), before);
    std::filesystem::permissions(file, std::filesystem::perms::owner_all);
    EXPECT_EQ(form.save(), Save_outcome::saved);
    EXPECT_TRUE(has_line("work/study.tvp", "description=full"));
}

TEST_F(Edited_file_test, under_a_new_name_the_folder_follows_once_and_nothing_goes_away) {
    drives.write("work/study/Scenarios/a.tvn", "[x]\r\n");
    drives.write("work/study/notes.txt", "old");
    ASSERT_TRUE(bind());
    for (const auto& [chosen, folder] : {std::pair("C:\\work\\second.tvp", std::string("work/second")),
                                         {"C:\\other\\place\\.TVS_project", "other/place"}}) {
        save_as(chosen);
        EXPECT_EQ(form.get_parameter_file_name(), chosen);
        EXPECT_EQ(saved(folder + "/Scenarios/a.tvn") + saved(folder + "/notes.txt"), "[x]\r\nold");
    }
    EXPECT_NE(saved("other/place/.TVS_project").find("[written by another program]"), std::string::npos);
    EXPECT_EQ(saved("work/study/notes.txt"), "old");
    // The folder cannot follow into itself, nor the record go without it.
    save_as("C:\\other\\place\\inner\\x.tvp",
            {failing(Modal_result::abort, "\nThe target of the copy is its source, or lies in it.")});
    EXPECT_FALSE(std::filesystem::exists(drives.host("other/place/inner/x.tvp")));
    EXPECT_EQ(form.get_parameter_file_name(), "C:\\other\\place\\.TVS_project");
}

TEST_F(Edited_file_test, a_save_as_that_is_refused_or_fails_leaves_all_as_it_was) {
    drives.write("work/there.tvp", "mine");
    drives.write("work/study/notes.txt", "of the study");
    drives.write("work/taken/notes.txt", "of another");
    ASSERT_TRUE(bind());
    desktop.expect_file_dialog(save_title, {});
    EXPECT_TRUE(form.save_as_button.click());
    EXPECT_EQ(desktop.last_file_dialog()->initial_folder, "C:\\work");
    save_as("C:\\work\\there.tvp", {replacing("C:\\work\\there.tvp", Modal_result::no)});
    EXPECT_EQ(saved("work/there.tvp"), "mine");
    EXPECT_EQ(form.file.dialog.file_name, study);
    save_as("C:\\work\\taken",
            {replacing("C:\\work\\taken", Modal_result::yes), failing(Modal_result::abort)});
    EXPECT_EQ(saved("work/taken/notes.txt"), "of another");
    EXPECT_EQ(form.get_parameter_file_name(), study);
    EXPECT_TRUE(form.visible());
    EXPECT_EQ(form.save(), Save_outcome::saved); // under the old name
}

TEST_F(Edited_file_test, what_could_not_be_read_is_not_written_over_unasked) {
    const auto file = drives.host("work/study.tvp");
    const std::string before = saved("work/study.tvp");
    std::filesystem::remove(file);
    std::filesystem::create_directory(file); // readable by nobody as a file, whoever runs the test
    ASSERT_TRUE(bind());
    expect(failing(Modal_result::abort));
    EXPECT_EQ(form.save(), Save_outcome::aborted);
    std::filesystem::remove(file);
    drives.write("work/study.tvp", before);
    expect(replacing(study, Modal_result::no));
    EXPECT_EQ(form.save(), Save_outcome::aborted);
    EXPECT_EQ(saved("work/study.tvp"), before);
    expect(replacing(study, Modal_result::yes));
    EXPECT_EQ(form.save(), Save_outcome::saved);
    EXPECT_NE(saved("work/study.tvp").find("[written by another program]"), std::string::npos);
}

TEST_F(Edited_file_test, a_large_file_is_loaded_when_the_user_wants_to_wait_and_kept_when_not) {
    std::string large = "[x]\r\n";
    for (char key = 'a'; key < 'r'; ++key)
        large += key + ('=' + std::string(std::size_t{1} << 20, 'z') + "\r\n");
    drives.write("work/large.tvp", large + saved("work/study.tvp"));
    const auto expect_question = [this](Modal_result answer) {
        expect({"Large file",
                "This file is very large, and loading it takes a while:\nC:\\work\\large.tvp (17 MiB)\n"
                "Load it? ([No] leaves it as it is)",
                answer});
    };
    expect_question(Modal_result::no);
    ASSERT_TRUE(bind("C:\\work\\large.tvp"));
    EXPECT_EQ(record.description, "");
    expect(replacing("C:\\work\\large.tvp", Modal_result::no));
    EXPECT_EQ(form.save(), Save_outcome::aborted);
    // The user may tire of it.
    for (const bool is_stopped : {true, false}) {
        expect_question(Modal_result::yes);
        desktop.closing = is_stopped;
        form.load();
        EXPECT_EQ(record.description.empty(), is_stopped);
    }
}

TEST_F(Edited_file_test, a_folder_that_follows_replaces_what_has_its_names_only_with_consent) {
    drives.write("work/study/notes.txt", "of the study");
    drives.write("work/taken/NOTES.TXT", "of another");
    drives.write("work/taken/Scenarios/kept.tvn", "kept");
    ASSERT_TRUE(bind());
    const auto replacing_notes = [](Modal_result answer) {
        return Question{"Files already exist",
                        "Replace the existing files with these names:\nC:\\work\\taken\\NOTES.TXT", answer};
    };
    {
        const Full_disk full_disk;
        const std::string reason = "\nThe disk is full.\nC:\\work\\study\\backup";
        save_as("C:\\work\\taken.tvp", {replacing_notes(Modal_result::yes),
                                        failing(Modal_result::retry, reason), // asks no second time
                                        failing(Modal_result::abort, reason)});
    }
    for (const Modal_result answer : {Modal_result::no, Modal_result::yes}) {
        EXPECT_EQ(saved("work/taken/NOTES.TXT"), "of another");
        save_as("C:\\work\\taken.tvp", {replacing_notes(answer)});
    }
    EXPECT_EQ(saved("work/taken/NOTES.TXT"), "of the study");
    EXPECT_EQ(saved("work/taken/Scenarios/kept.tvn"), "kept");
    EXPECT_EQ(form.notes.memo_notes.text(), "of the study");
}

TEST_F(Edited_file_test, a_file_that_has_come_into_being_since_is_not_written_over_unasked) {
    const std::string late = "C:\\work\\late.tvp";
    ASSERT_TRUE(bind(late));
    drives.write("work/late.tvp", "[other]\r\nkey=1\r\n");
    expect(replacing(late, Modal_result::no));
    EXPECT_TRUE(form.ok_button.click());
    EXPECT_TRUE(form.visible());
    EXPECT_EQ(saved("work/late.tvp"), "[other]\r\nkey=1\r\n");
    {
        const Full_disk full_disk;
        save_as(late,
                {replacing(late, Modal_result::yes), failing(Modal_result::retry), // asks no second time
                 failing(Modal_result::abort)});
    }
    save_as(late, {replacing(late, Modal_result::yes)});
    EXPECT_TRUE(has_line("work/late.tvp", "[project]"));
    EXPECT_EQ(form.save(), Save_outcome::saved); // it is this form's own by now
}

TEST_F(Edited_file_test, a_file_chosen_during_a_save_is_replaced_only_with_consent) {
    drives.write("work/mine.DAT", "mine");
    bind_loose();
    for (const Modal_result answer : {Modal_result::no, Modal_result::yes}) {
        EXPECT_EQ(saved("work/mine.DAT"), "mine");
        desktop.expect_file_dialog("Save Loose record as", {"C:\\work\\mine.DAT"});
        expect(replacing("C:\\work\\mine.DAT", answer));
        EXPECT_EQ(form.save(), answer == Modal_result::yes ? Save_outcome::saved : Save_outcome::aborted);
    }
    EXPECT_NE(saved("work/mine.DAT"), "mine");
}

TEST_F(Edited_file_test, a_name_that_the_suite_cannot_write_down_is_not_turned_into_another) {
    ASSERT_TRUE(bind());
    desktop.expect_file_dialog(save_title, {"C:\\work\\\xD0\x96x.tvp"});
    expect(failing(Modal_result::retry));
    save_as("C:\\work\\\xE2\x82\xACx.tvp");
    EXPECT_FALSE(std::filesystem::exists(drives.host("work/x.tvp")));
    EXPECT_EQ(form.get_parameter_file_name(), "C:\\work\\\x80x.tvp");
    EXPECT_TRUE(has_line("work/\xE2\x82\xACx.tvp", "[project]"));
}

TEST_F(Edited_file_test, what_nobody_has_changed_is_not_written_again) {
    ASSERT_TRUE(bind());
    const std::string before = saved("work/study.tvp");
    EXPECT_TRUE(form.run("p.exe", nullptr, "x", nullptr, false, show_normal));
    EXPECT_EQ(saved("work/study.tvp"), before);

    const std::string of_another = before + "[of a colleague]\r\nkey=1\r\n";
    drives.write("work/study.tvp", of_another);
    EXPECT_TRUE(form.run("p.exe", nullptr, "x", nullptr, false, show_normal));
    EXPECT_EQ(saved("work/study.tvp"), of_another);

    drives.write("work/study.tvp", "[project]\r\ndescription=of a colleague\r\n");
    EXPECT_EQ(form.save(), Save_outcome::saved);
    desktop.advance(600); // what was seen to be outdated is shown anew
    EXPECT_EQ(form.edit_description.text(), "of a colleague");
    EXPECT_FALSE(form.has_changes());
    drives.write("work/study.tvp", "[project]\r\ndescription=of a colleague again\r\n");
    drives.write("work/study/notes.txt", "theirs");
    desktop.expect_modal("asking", [this](TForm& asking) {
        form.activate();
        EXPECT_EQ(form.edit_description.text(), "of a colleague") << "not under the hands of who asked";
        asking.close();
    });
    TForm("asking").show_modal();
    EXPECT_TRUE(form.activate()); // the user comes back to the window
    EXPECT_EQ(form.edit_description.text(), "of a colleague again");
    EXPECT_EQ(form.notes.memo_notes.text(), "theirs");
    EXPECT_EQ(form.status_line.text(), "Another program has changed this file: it has been loaded again");
    std::filesystem::remove(drives.host("work/study.tvp"));
    EXPECT_EQ(form.save(), Save_outcome::saved);
    EXPECT_TRUE(has_line("work/study.tvp", "description=of a colleague again"));
}

TEST_F(Edited_file_test, what_is_changed_on_both_sides_is_asked_for) {
    ASSERT_TRUE(bind());
    record.report_format = "C:\\mine.fmt";
    describe("mine");
    const std::string theirs = "[project]\r\ndescription=theirs\r\n[other]\r\nkey=1\r\n";
    drives.write("work/study.tvp", theirs);
    for (const Modal_result answer : {Modal_result::cancel, Modal_result::no}) {
        expect_conflict(study, answer);
        EXPECT_TRUE(form.ok_button.click());
        EXPECT_TRUE(form.visible());
        EXPECT_EQ(form.edit_description.text(), answer == Modal_result::no ? "theirs" : "mine");
    }
    EXPECT_EQ(record.report_format, "default.FMT") << "what their file does not tell is as in a new record";
    EXPECT_FALSE(form.has_changes());
    EXPECT_EQ(saved("work/study.tvp"), theirs);

    describe("mine again");
    drives.write("work/study.tvp", theirs + "more=2\r\n");
    expect_conflict("C:\\work\\study.tvp", Modal_result::yes);
    EXPECT_TRUE(form.ok_button.click());
    EXPECT_TRUE(has_line("work/study.tvp", "description=mine again"));
    EXPECT_TRUE(has_line("work/study.tvp", "more=2"));
}

TEST_F(Edited_file_test, files_of_the_record_follow_its_folder_to_another_name) {
    drives.write("work/study/Scenarios/dry.tvn", "[x]\r\n");
    ASSERT_TRUE(bind());
    const char* const relative = "Scenarios\\wet.tvn";
    record.active_scenario.set("c:\\WORK\\study\\Scenarios\\dry.tvn");
    record.template_scenario.set(relative);
    record.GIS_parameters.coverage_PAT_filename.set("C:\\work\\study2\\map.dbf");
    record.GIS_parameters.output_directory = "C:\\work\\study\\GIS";
    describe("C:\\work\\study\\ was the first");
    {
        const Failing_step no_flush(platform::Write_step::flush, EIO); // of the record; no copy is flushed
        save_as("C:\\work\\half.tvp", {failing(Modal_result::abort)});
        EXPECT_EQ(record.active_scenario, "c:\\WORK\\study\\Scenarios\\dry.tvn");
    }
    save_as("C:\\work\\second.tvp");
    EXPECT_EQ(record.active_scenario, "C:\\work\\second\\Scenarios\\dry.tvn");
    EXPECT_EQ(record.template_scenario, relative);
    EXPECT_EQ(record.GIS_parameters.coverage_PAT_filename, "C:\\work\\study2\\map.dbf");
    EXPECT_EQ(record.GIS_parameters.output_directory, "C:\\work\\second\\GIS");
    EXPECT_EQ(record.description, "C:\\work\\study\\ was the first");
    EXPECT_TRUE(has_line("work/second.tvp", "active=C:\\work\\second\\Scenarios\\dry.tvn"));
}

TEST_F(Edited_file_test, a_save_as_that_fails_says_why_and_leaves_nothing_behind) {
    drives.write("work/study/Scenarios/dry.tvn", "[x]\r\n");
    ASSERT_EQ(mkfifo(drives.host("work/study/pipe").c_str(), 0600), 0);
    ASSERT_TRUE(bind());
    {
        const Full_disk full_disk;
        save_as("C:\\work\\second.tvp",
                {failing(Modal_result::abort, "\nThe disk is full.\nC:\\work\\study\\Scenarios\\dry.tvn")});
    }
    {
        const Failing_step no_flush(platform::Write_step::flush, EIO); // of the record; no copy is flushed
        save_as("C:\\work\\second.tvp", {failing(Modal_result::abort)});
    }
    EXPECT_FALSE(std::filesystem::exists(drives.host("work/second")));
    save_as("C:\\work\\second.tvp");
    EXPECT_EQ(saved("work/second/Scenarios/dry.tvn"), "[x]\r\n");
    EXPECT_EQ(form.status_line.text(), "What is no file was not copied: C:\\work\\study\\pipe");
}

TEST_F(Edited_file_test, what_an_interrupted_save_left_aside_is_offered) {
    const std::string before = saved("work/study.tvp");
    const auto damage = [&] {
        drives.write("work/study.tvp", before);
        std::filesystem::remove(drives.host("work/link"));
        std::filesystem::create_hard_link(drives.host("work/study.tvp"), drives.host("work/link"));
        platform::File_faults faults;
        faults.fail(platform::Write_step::write_in_place, EIO, 10);
        faults.fail(platform::Write_step::write_back, EIO);
        platform::write_file("C:\\work\\study.tvp", "much shorter", platform::Durability::durable);
        ASSERT_NE(saved("work/study.tvp"), before);
    };
    for (const Modal_result answer : {Modal_result::no, Modal_result::yes}) {
        damage();
        const auto interrupted = platform::interrupted_save("C:\\work\\study.tvp");
        ASSERT_TRUE(interrupted);
        desktop.expect_message(
            "Interrupted save",
            "The last save of this file was interrupted, and the file may be damaged:\nC:\\work\\study.tvp\n"
            "What it held before has been kept:\n" +
                interrupted->copy +
                "\nPut that back? ([No] keeps the file as it is, and deletes what has been kept)",
            answer);
        ASSERT_TRUE(bind());
        EXPECT_EQ(saved("work/study.tvp") == before, answer == Modal_result::yes);
        EXPECT_FALSE(platform::interrupted_save("C:\\work\\study.tvp"));
    }
    EXPECT_NE(form.edit_description.text(), "");
}
