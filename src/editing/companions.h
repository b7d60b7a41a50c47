// What lies beside a record and is edited with it: its page of details, its notes, and the status that other
// programs write. It fills the three pages of the frame for them.
#pragma once

#include "editing/auto_edits.h"
#include "editing/companion_text.h"
#include "editing/edited_file.h"
#include "toolkit/button.h"
#include "toolkit/page_control.h"
#include "toolkit/web_view.h"

#include <functional>
#include <string>

class Companions {
public:
    // All outlive this.
    Companions(Edited_file& file, TTabSheet& details, TTabSheet& notes, TTabSheet& status);

    void bind(Common_parameters_data_record& parameters);
    // Shows the pages while the record has a folder, and in them what lies there.
    void show_folder(bool there);

    bool has_changes() const { return notes_.modified() || details_text_.modified(); }
    // Writes what was changed. While that cannot be done the user is asked.
    Save_outcome save();

    // Saves the record, and opens the file in a text editor.
    std::function<void(const std::string& file)> edit_as_text;

    TTabSheet& tabsheet_details;
    TTabSheet& tabsheet_notes;
    TTabSheet& tabsheet_status;

    TPageControl& details_pagecontrol;
    TTabSheet& tabsheet_view_details;
    TTabSheet& tabsheet_edit_details;
    TTabSheet& tabsheet_external_editor;
    TAutoStringEdit& edit_details_URL;
    TWebView& details_html_viewer;
    TMemo& details_edit_memo;
    TButton& button_reload_details;
    TButton& button_local_details;
    TButton& button_edit_details_HTML;
    TButton& button_edit_details_text;

    TMemo& memo_notes;
    TButton& button_notes;
    TMemo& status_memo;

private:
    using Name_of_companion = bool (TESK::Common_parameters_directory::*)(TESK::Smart_file_name&, bool) const;

    void wire();
    TESK::Smart_file_name name_of(Name_of_companion get, bool create_folder) const;
    Save_outcome save_one(Companion_text& text, Name_of_companion get, bool wanted);
    void load_texts();
    void load_details_text();
    void leave_details_text();
    void reload_details();
    bool make_details_file(TESK::Smart_file_name& details) const;
    void button_edit_details_HTMLClick();
    void button_edit_details_textClick();
    void button_local_detailsClick();
    void button_notesClick();

    Edited_file& file_;
    Common_parameters_data_record* parameters_ = nullptr;
    Companion_text notes_;
    Companion_text details_text_;
};
