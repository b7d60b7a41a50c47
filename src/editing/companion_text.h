// A text file that lies beside a record, such as its notes, edited in a memo.
#pragma once

#include "editing/edited_file.h"
#include "editing/known_contents.h"
#include "toolkit/edit.h"
#include "toolkit/label.h"

class Companion_text {
public:
    // Of a longer file only the beginning is shown; it can be read here, and edited elsewhere.
    static constexpr std::size_t largest_shown = std::size_t{256} << 10; // bytes

    // How the folder of a record names the companion.
    using Get_name = bool (TESK::Common_parameters_directory::*)(TESK::Smart_file_name&, bool) const;

    // The record's file and the memo outlive this.
    Companion_text(const Edited_file& record, Get_name get_name, TMemo& memo)
        : record_(record), get_name_(get_name), memo_(memo) {}

    // The companion's name, in the folder of the record as that is named now.
    TESK::Smart_file_name name(bool create_folder = false) const;

    // Shows the file; one that is not there shows nothing. What cannot be read, is no text or is too long
    // cannot be edited, so that it is never written over. The memo is not modified afterwards.
    void load();
    // The same, but for a text that is being edited.
    void show_anew();
    // Whether the file goes on behind what is shown.
    bool is_cut() const { return is_cut_; }
    // Whether the user has changed the text and it was not saved.
    bool modified() const { return memo_.modified() && !memo_.read_only(); }

    // Writes what was changed, with the line ends of the suite and in the encoding that the file had: UTF-8,
    // with or without its mark, or else code page 1252. A text with characters that the page lacks becomes
    // UTF-8 with its mark. While the disk cannot be reached the user is asked, and so they are when another
    // program has changed the file; what they choose to load is on the screen then, and the answer is
    // aborted.
    Save_outcome save();

private:
    enum class Encoding { code_page, utf8, utf8_with_mark };

    platform::Write_result write();

    const Edited_file& record_;
    Get_name get_name_;
    TMemo& memo_;
    Encoding encoding_ = Encoding::code_page;
    bool is_cut_ = false;
    bool has_offered_ = false; // what an interrupted save has left
    Known_contents known_;
};
