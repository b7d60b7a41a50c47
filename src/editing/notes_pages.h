// The notes beside a record, which a user writes, and the status of it, which other programs write.
#pragma once

#include "editing/companion_text.h"
#include "editing/long_text_note.h"

#include <functional>
#include <string>

class Notes_pages {
public:
    // All outlive this.
    Notes_pages(Edited_file& file, TTabSheet& notes, TTabSheet& status);

    // Shows the pages while the record has a folder, and in them what lies there.
    void show_folder(bool there);

    // Shows what lies there now, but for notes that are being edited.
    void show_texts();

    bool has_changes() const { return notes_.modified(); }
    Save_outcome save();

    // Saves the record, and opens the file in a text editor.
    std::function<void(const std::string& file)> edit_as_text;

    TTabSheet& tabsheet_notes;
    TTabSheet& tabsheet_status;
    Long_text_note long_notes_note;
    TMemo& memo_notes;
    TButton& button_notes;
    TLabel& label_no_status;
    Long_text_note long_status_note;
    TMemo& status_memo;

private:
    void button_notesClick();

    Companion_text notes_;
    Companion_text status_;
};
