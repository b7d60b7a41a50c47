// The details of a record: a page of hypertext beside the file, or one on the web, shown, edited as source
// text, and handed to other editors.
#pragma once

#include "editing/auto_edits.h"
#include "editing/companion_text.h"
#include "editing/long_text_note.h"
#include "toolkit/web_view.h"

#include <functional>
#include <string>

class Details_page {
public:
    // Both outlive this.
    Details_page(Edited_file& file, TTabSheet& sheet);

    void bind(Common_parameters_data_record& parameters);
    // Shows the page while the record has a folder, and in it what lies there.
    void show_folder(bool there);

    // Changed details are written when the user goes to another page, and by save().
    bool has_changes() const { return text_.modified(); }
    // Shows what another program has made of the page meanwhile, but for a text that is being edited.
    void show_anew();
    Save_outcome save();

    // Saves the record, and opens the file in a text editor.
    std::function<void(const std::string& file)> edit_as_text;

    TTabSheet& tabsheet_details;
    TPageControl& details_pagecontrol;
    TTabSheet& tabsheet_view_details;
    TTabSheet& tabsheet_edit_details;
    TTabSheet& tabsheet_external_editor;
    TAutoStringEdit& edit_details_URL;
    TButton& button_reload_details;
    TButton& button_local_details;
    Long_text_note long_page_note;
    TWebView& details_html_viewer;
    Long_text_note long_details_note;
    TMemo& details_edit_memo;
    TButton& button_edit_details_HTML;
    TButton& button_edit_details_text;

private:
    void wire();
    void reload_details();
    void show_page(const std::string& address);
    void show_text();
    bool make_file() const;
    void button_edit_details_HTMLClick();
    void button_edit_details_textClick();
    void button_local_detailsClick();

    Common_parameters_data_record* parameters_ = nullptr;
    Companion_text text_;
    Known_contents known_page_;       // beside the record, as it was shown last
    TESK::Smart_file_name long_page_; // what is too long to be shown here
};
