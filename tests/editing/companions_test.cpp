#include "frame_support.h"

using Companions_test = Parameter_file_form;

TEST_F(Companions_test, notes_details_and_status_lie_in_the_folder_of_the_record) {
    drives.write("work/study/notes.txt", "caf\xE9\r\n");
    drives.write("work/study/details.htm", "<HTML>\xC3\xA9</HTML>\r\n"); // another program's UTF-8
    drives.write("work/study/status.txt", "checked");
    ASSERT_TRUE(bind());
    EXPECT_EQ(form.details.details_html_viewer.address(), "C:\\work\\study\\details.htm");
    EXPECT_EQ(form.notes.status_memo.text(), "checked");
    form.notes.memo_notes.bring_to_front();
    EXPECT_EQ(form.notes.memo_notes.text(), "caf\xC3\xA9\n");
    form.notes.memo_notes.set_caret(100);
    EXPECT_TRUE(form.notes.memo_notes.type_text("more\xD0\x96")); // a letter that the code page lacks
    EXPECT_TRUE(form.has_changes());
    form.details.details_edit_memo.bring_to_front();
    form.details.details_edit_memo.focus();
    form.details.details_edit_memo.set_caret(7);
    EXPECT_TRUE(form.details.details_edit_memo.type_text("\xD0\x96"));
    form.notes.memo_notes.bring_to_front(); // leaving saves
    form.notes.memo_notes.focus();
    EXPECT_EQ(saved("work/study/details.htm"), "<HTML>\xC3\xA9\xD0\x96</HTML>\r\n");
    EXPECT_TRUE(form.ok_button.click());
    EXPECT_EQ(saved("work/study/notes.txt"), "\xEF\xBB\xBF"
                                             "caf\xC3\xA9\r\nmore\xD0\x96");
}

TEST_F(Companions_test, a_page_on_the_web_is_shown_before_the_local_one_until_it_is_forgotten) {
    drives.write("work/study/details.htm", "<HTML>\r\n</HTML>\r\n");
    ASSERT_TRUE(bind());
    retype(form.details.edit_details_URL, "http://example.org/trial");
    EXPECT_TRUE(form.details.button_reload_details.click());
    EXPECT_EQ(form.details.details_html_viewer.address(), "http://example.org/trial");
    form.details.details_edit_memo.bring_to_front();
    EXPECT_EQ(form.details.details_html_viewer.address(), "C:\\work\\study\\details.htm");
    form.details.button_local_details.bring_to_front();
    EXPECT_TRUE(form.details.button_local_details.click());
    EXPECT_EQ(form.details.details_html_viewer.address(), "C:\\work\\study\\details.htm");
    EXPECT_EQ(record.details_URL, "");
    std::filesystem::remove(drives.host("work/study/details.htm"));
    form.details.button_edit_details_text.bring_to_front();
    EXPECT_TRUE(form.details.button_edit_details_text.click());
    EXPECT_EQ(saved("work/study/details.htm"), "<HTML>\r\n</HTML>\r\n");
    EXPECT_EQ(launcher.started, "\"notepad.exe\"  \"C:\\work\\study\\details.htm\"  [1]\n");
}

TEST_F(Companions_test, a_companion_that_cannot_be_read_is_neither_edited_nor_written_over) {
    std::filesystem::create_directory(drives.host("work/study/notes.txt"));
    const std::string huge(std::size_t{17} << 20, 'x');
    drives.write("work/study/details.htm", huge);
    ASSERT_TRUE(bind());
    for (TMemo* memo : {&form.notes.memo_notes, &form.details.details_edit_memo, &form.notes.status_memo}) {
        memo->bring_to_front();
        EXPECT_TRUE(memo->read_only());
        EXPECT_FALSE(memo->type_text("x"));
    }
    EXPECT_TRUE(form.ok_button.click());
    EXPECT_EQ(saved("work/study/details.htm").size(), huge.size());
}

TEST_F(Companions_test, companions_that_other_programs_change_are_shown_anew_unless_they_are_being_edited) {
    drives.write("work/study/notes.txt", "one\rtwo\r\nthree\n");
    drives.write("work/study/details.htm", "old");
    ASSERT_TRUE(bind());
    EXPECT_EQ(form.notes.memo_notes.text(), "one\ntwo\nthree\n");
    form.details.details_edit_memo.bring_to_front();
    EXPECT_EQ(form.details.details_edit_memo.text(), "old");
    form.notes.memo_notes.bring_to_front();
    EXPECT_TRUE(form.notes.memo_notes.type_text("zero\n"));
    drives.write("work/study/details.htm", "new");
    form.details.tabsheet_details.bring_to_front();
    EXPECT_EQ(form.details.details_edit_memo.text(), "new");
    form.details.details_edit_memo.bring_to_front();
    drives.write("work/study/details.htm", "newest");
    EXPECT_TRUE(form.activate()); // the user comes back to the window
    EXPECT_EQ(form.details.details_edit_memo.text(), "newest");
    drives.write("work/study/notes.txt", "elsewhere");
    form.notes.memo_notes.bring_to_front();
    EXPECT_EQ(form.notes.memo_notes.text(), "zero\none\ntwo\nthree\n");
}

TEST_F(Companions_test, details_are_written_when_their_page_is_left_and_by_a_save_and_never_else) {
    drives.write("work/study/details.htm", "old");
    ASSERT_TRUE(bind());
    const auto type = [&](const std::string& text) {
        form.details.details_edit_memo.bring_to_front();
        form.details.details_edit_memo.select_all();
        EXPECT_TRUE(form.details.details_edit_memo.type_text(text));
    };
    type("another page of the details");
    form.details.button_reload_details.bring_to_front();
    EXPECT_EQ(saved("work/study/details.htm"), "another page of the details");
    type("another page of the form");
    form.tabsheet_parameters.bring_to_front();
    EXPECT_EQ(saved("work/study/details.htm"), "another page of the form");

    type("kept back");
    EXPECT_TRUE(form.edit_description.focus());
    EXPECT_TRUE(form.has_changes());
    for (const Modal_result answer : {Modal_result::cancel, Modal_result::no}) {
        expect(leaving(answer));
        form.close();
    }
    EXPECT_EQ(saved("work/study/details.htm"), "another page of the form");
    form.show();
    save_as("C:\\work\\second.tvp");
    EXPECT_EQ(saved("work/study/details.htm"), "another page of the form");
    EXPECT_EQ(saved("work/second/details.htm"), "kept back");
}

TEST_F(Companions_test, notes_that_another_program_has_changed_are_not_written_over_unasked) {
    drives.write("work/study/notes.txt", "old");
    ASSERT_TRUE(bind());
    form.notes.memo_notes.bring_to_front();
    EXPECT_TRUE(form.notes.memo_notes.type_text("mine "));
    drives.write("work/study/notes.txt", "theirs");
    expect_conflict("C:\\work\\study\\notes.txt", Modal_result::no);
    EXPECT_TRUE(form.ok_button.click());
    EXPECT_TRUE(form.visible());
    EXPECT_EQ(form.notes.memo_notes.text(), "theirs");
    EXPECT_TRUE(form.notes.memo_notes.type_text("mine and "));
    drives.write("work/study/notes.txt", "theirs again");
    {
        platform::File_faults faults;
        faults.fail(platform::Write_step::read, EIO);
        expect(failing(Modal_result::abort));
        EXPECT_TRUE(form.ok_button.click());
        EXPECT_EQ(saved("work/study/notes.txt"), "theirs again");
    }
    expect_conflict("C:\\work\\study\\notes.txt", Modal_result::yes);
    EXPECT_TRUE(form.ok_button.click());
    EXPECT_EQ(saved("work/study/notes.txt"), "mine and theirs");
}

TEST_F(Companions_test, long_texts_show_their_beginning_and_are_not_edited) {
    const std::string line(99, 'x');
    std::string text;
    while (text.size() < 3 * Companion_text::largest_shown)
        text += line + "\r\n";
    drives.write("work/study/notes.txt", text);
    drives.write("work/study/details.htm", text + text);
    ASSERT_TRUE(bind());
    for (TMemo* memo : {&form.notes.memo_notes, &form.details.details_edit_memo}) {
        memo->bring_to_front();
        EXPECT_TRUE(memo->read_only());
        EXPECT_LE(memo->text().size(), Companion_text::largest_shown);
        EXPECT_TRUE(memo->text().ends_with(line + "\n"));
    }
    EXPECT_EQ(form.details.details_html_viewer.address(), "");
    retype(form.details.edit_details_URL, "C:\\work\\study\\details.htm"); // no page of the web
    EXPECT_TRUE(form.details.button_reload_details.click());
    EXPECT_EQ(form.details.details_html_viewer.address(), "");
    form.details.details_edit_memo.bring_to_front();
    EXPECT_TRUE(form.details.long_details_note.panel.find("long_details_note_button")->click());
    EXPECT_EQ(launcher.started, "\"notepad.exe\"  \"C:\\work\\study\\details.htm\"  [1]\n");
    EXPECT_TRUE(form.ok_button.click());
    EXPECT_EQ(saved("work/study/notes.txt"), text);
    EXPECT_EQ(saved("work/study/details.htm"), text + text);
}
