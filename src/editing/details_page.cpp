#include "editing/details_page.h"

#include "editing/program_starter.h"
#include "platform/file_writer.h"
#include "platform/files.h"

namespace {

constexpr const char* html_file = "<HTML>\r\n</HTML>\r\n";
} // namespace

Details_page::Details_page(Edited_file& file, TTabSheet& sheet)
    : tabsheet_details(sheet), details_pagecontrol(fill(sheet.add<TPageControl>("details_pagecontrol"))),
      tabsheet_view_details(details_pagecontrol.add<TTabSheet>("tabsheet_view_details", "Details")),
      tabsheet_edit_details(details_pagecontrol.add<TTabSheet>("tabsheet_edit_details", "Edit details")),
      tabsheet_external_editor(
          details_pagecontrol.add<TTabSheet>("tabsheet_external_editor", "External editor")),
      edit_details_URL([this]() -> TAutoStringEdit& {
          TPanel& row = add_row(tabsheet_view_details, "panel_details_URL");
          row.add<TLabel>("label_details_URL", "Page on the web").set_names_next(true);
          return fill(row.add<TAutoStringEdit>("edit_details_URL"));
      }()),
      button_reload_details(add_button(*edit_details_URL.parent(), "button_reload_details", "Reload",
                                       "Show the page again, as it is now.")),
      button_local_details(add_button(*edit_details_URL.parent(), "button_local_details", "Local page",
                                      "Forget the page on the web, and show the page beside the file.")),
      long_page_note(tabsheet_view_details, "long_page_note",
                     "This page is too long to be shown here. The browser shows it.", "Open in browser"),
      details_html_viewer(fill(tabsheet_view_details.add<TWebView>("details_html_viewer"))),
      long_details_note(tabsheet_edit_details, "long_details_note", cut_text_note, "Edit as text"),
      details_edit_memo(fill(tabsheet_edit_details.add<TMemo>("details_edit_memo"))),
      button_edit_details_HTML(
          add_button(tabsheet_external_editor, "button_edit_details_HTML", "Edit as page",
                     "Edit the details with the editor of your desktop. The HTM file type must be associated "
                     "with an editor.")),
      button_edit_details_text(
          add_button(tabsheet_external_editor, "button_edit_details_text", "Edit as text",
                     "Edit the source of the details with a text editor. The HTM file type must be "
                     "associated with an editor for the other button.")),
      text_(file, &TESK::Common_parameters_directory::get_details_filename, details_edit_memo) {
    details_edit_memo.set_fixed_pitch(true);
    add_note(tabsheet_external_editor, "external_editor_note",
             "The details open in the program that your desktop has for pages or for texts.");
    keep_narrow(button_edit_details_HTML);
    keep_narrow(button_edit_details_text);
    wire();
}

void Details_page::wire() {
    button_reload_details.on_click = [this] { reload_details(); };
    button_local_details.on_click = [this] { button_local_detailsClick(); };
    button_edit_details_HTML.on_click = [this] { button_edit_details_HTMLClick(); };
    button_edit_details_text.on_click = [this] { button_edit_details_textClick(); };
    long_details_note.on_open = [this] { button_edit_details_textClick(); };
    long_page_note.on_open = [this] { open_or_tell(long_page_); };
    tabsheet_details.on_show = [this] { show_text(); };
    tabsheet_edit_details.on_show = [this] {
        show_text();
        if (!parameters_->details_URL.empty())
            show_page(text_.name());
    };
    tabsheet_details.on_hide = tabsheet_edit_details.on_hide = [this] { save(); };
}

void Details_page::bind(Common_parameters_data_record& parameters) {
    parameters_ = &parameters;
    edit_details_URL.bind_to(&parameters.details_URL, nullptr);
}

void Details_page::show_folder(bool there) {
    tabsheet_details.set_visible(there);
    if (there)
        reload_details();
}

Save_outcome Details_page::save() {
    if (!text_.modified())
        return Save_outcome::saved;
    const Save_outcome outcome = text_.save();
    reload_details();
    return outcome;
}

void Details_page::show_text() {
    text_.show_anew();
    long_details_note.panel.set_visible(text_.is_cut());
}

void Details_page::show_anew() {
    show_text();
    if (parameters_->details_URL.empty() &&
        known_page_.compare(text_.name()) != Known_contents::Comparison::same)
        reload_details();
}

// The page that the record names or, where it names none, the one beside it.
void Details_page::reload_details() {
    known_page_.take(text_.name());
    show_page(parameters_->details_URL.empty() ? text_.name() : parameters_->details_URL);
}

// A view lays out the whole of a page before it shows any of it.
void Details_page::show_page(const std::string& address) {
    const bool is_on_the_web = is_web_address(address);
    long_page_.set(address.substr(0, platform::is_file(address) ? std::string::npos : address.rfind('#')));
    const bool is_long = !is_on_the_web && platform::file_size(long_page_) > Companion_text::largest_shown;
    long_page_note.panel.set_visible(is_long);
    const bool is_there = is_on_the_web || platform::is_file(long_page_);
    details_html_viewer.navigate(is_there && !is_long ? screen_text(address) : "");
}

// Makes an empty page where there is none. False when that cannot be, which the user is told.
bool Details_page::make_file() const {
    const TESK::Smart_file_name page = text_.name(true);
    if (page.exists())
        return true;
    const platform::Write_result made = platform::write_file(page, html_file, platform::Durability::durable);
    if (!made.ok())
        message_box(made.reason, "Unable to save", Button_set::ok);
    return made.ok();
}

void Details_page::button_edit_details_HTMLClick() {
    if (make_file())
        edit_or_tell(text_.name());
}

void Details_page::button_edit_details_textClick() {
    if (make_file())
        edit_as_text(text_.name());
}

void Details_page::button_local_detailsClick() {
    parameters_->details_URL = "";
    edit_details_URL.Update();
    reload_details();
    details_pagecontrol.set_active_page(tabsheet_view_details);
}
