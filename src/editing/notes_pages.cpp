#include "editing/notes_pages.h"

namespace {

constexpr const char* edit_caption = "Edit with text editor";

}

Notes_pages::Notes_pages(Edited_file& file, TTabSheet& notes, TTabSheet& status)
    : tabsheet_notes(notes), tabsheet_status(status),
      long_notes_note(notes, "long_notes_note", cut_text_note, edit_caption),
      memo_notes(fill(notes.add<TMemo>("memo_notes"))),
      button_notes(add_button(notes, "button_notes", edit_caption,
                              "Edit the notes with the text editor of your desktop.")),
      label_no_status(add_note(status, "label_no_status",
                               "No program has left a status of this file yet. Programs of the suite that "
                               "work on it tell here what they found.")),
      long_status_note(status, "long_status_note", cut_text_note, edit_caption),
      status_memo(fill(status.add<TMemo>("status_memo"))),
      notes_(file, &TESK::Common_parameters_directory::get_notes_filename, memo_notes),
      status_(file, &TESK::Common_parameters_directory::get_status_filename, status_memo) {
    status_memo.set_read_only(true);
    keep_narrow(button_notes);
    button_notes.on_click = long_notes_note.on_open = [this] { button_notesClick(); };
    long_status_note.on_open = [this] { edit_as_text(status_.name()); };
    tabsheet_notes.on_show = tabsheet_status.on_show = [this] { show_texts(); };
}

void Notes_pages::show_folder(bool there) {
    tabsheet_notes.set_visible(there);
    tabsheet_status.set_visible(there);
    if (there)
        show_texts();
}

void Notes_pages::show_texts() {
    notes_.show_anew();
    long_notes_note.panel.set_visible(notes_.is_cut());
    status_.load();
    status_memo.set_read_only(true);
    long_status_note.panel.set_visible(status_.is_cut());
    label_no_status.set_visible(status_memo.text().empty());
}

// Notes that were emptied are left as they are on the disk.
Save_outcome Notes_pages::save() {
    return memo_notes.line_count() > 0 ? notes_.save() : Save_outcome::saved;
}

void Notes_pages::button_notesClick() {
    if (save() != Save_outcome::aborted)
        edit_as_text(notes_.name(true));
}
