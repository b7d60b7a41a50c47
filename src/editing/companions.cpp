#include "editing/companions.h"

#include "editing/page_parts.h"
#include "platform/file_writer.h"

namespace {

constexpr const char* html_file = "<HTML>\r\n</HTML>\r\n";

TMemo& add_memo(TControl& parent, const char* name) {
    return fill(parent.add<TMemo>(name));
}

void keep_narrow(TButton& button) {
    Place narrow;
    narrow.align = Align::start;
    button.set_place(narrow);
}

} // namespace

Companions::Companions(Edited_file& file, TTabSheet& details, TTabSheet& notes, TTabSheet& status)
    : tabsheet_details(details), tabsheet_notes(notes), tabsheet_status(status),
      details_pagecontrol(fill(details.add<TPageControl>("details_pagecontrol"))),
      tabsheet_view_details(details_pagecontrol.add<TTabSheet>("tabsheet_view_details", "Details")),
      tabsheet_edit_details(details_pagecontrol.add<TTabSheet>("tabsheet_edit_details", "Edit details")),
      tabsheet_external_editor(
          details_pagecontrol.add<TTabSheet>("tabsheet_external_editor", "External editor")),
      edit_details_URL([this]() -> TAutoStringEdit& {
          TPanel& row = add_row(tabsheet_view_details, "panel_details_URL");
          row.add<TLabel>("label_details_URL", "Page on the web").set_names_next(true);
          return fill(row.add<TAutoStringEdit>("edit_details_URL"));
      }()),
      details_html_viewer(fill(tabsheet_view_details.add<TWebView>("details_html_viewer"))),
      details_edit_memo(add_memo(tabsheet_edit_details, "details_edit_memo")),
      button_reload_details(add_button(*edit_details_URL.parent(), "button_reload_details", "Reload",
                                       "Show the page again, as it is now.")),
      button_local_details(add_button(*edit_details_URL.parent(), "button_local_details", "Local page",
                                      "Forget the page on the web, and show the page beside the file.")),
      button_edit_details_HTML(
          add_button(tabsheet_external_editor, "button_edit_details_HTML", "Edit as page",
                     "Edit the details with the editor of your desktop. The HTM file type must be associated "
                     "with an editor.")),
      button_edit_details_text(
          add_button(tabsheet_external_editor, "button_edit_details_text", "Edit as text",
                     "Edit the source of the details with a text editor. The HTM file type must be "
                     "associated with an editor for the other button.")),
      memo_notes(add_memo(notes, "memo_notes")),
      button_notes(add_button(notes, "button_notes", "Edit with text editor",
                              "Edit the notes with the text editor of your desktop.")),
      status_memo(add_memo(status, "status_memo")), file_(file), notes_(memo_notes),
      details_text_(details_edit_memo) {
    details_edit_memo.set_fixed_pitch(true);
    status_memo.set_read_only(true);
    for (TButton* button : {&button_edit_details_HTML, &button_edit_details_text, &button_notes})
        keep_narrow(*button);
    wire();
}

void Companions::wire() {
    button_notes.on_click = [this] { button_notesClick(); };
    button_reload_details.on_click = [this] { reload_details(); };
    button_local_details.on_click = [this] { button_local_detailsClick(); };
    button_edit_details_HTML.on_click = [this] { button_edit_details_HTMLClick(); };
    button_edit_details_text.on_click = [this] { button_edit_details_textClick(); };
    details_edit_memo.on_exit = [this] { leave_details_text(); };
    tabsheet_details.on_show = [this] { load_details_text(); };
    tabsheet_edit_details.on_show = [this] { load_details_text(); };
    tabsheet_notes.on_show = [this] { load_texts(); };
    tabsheet_status.on_show = [this] { load_texts(); };
}

void Companions::bind(Common_parameters_data_record& parameters) {
    parameters_ = &parameters;
    edit_details_URL.bind_to(&parameters.details_URL, nullptr);
}

void Companions::show_folder(bool there) {
    for (TTabSheet* page : {&tabsheet_details, &tabsheet_notes, &tabsheet_status})
        page->set_visible(there);
    if (!there)
        return;
    load_texts();
    reload_details();
}

TESK::Smart_file_name Companions::name_of(Name_of_companion get, bool create_folder) const {
    TESK::Smart_file_name name;
    (file_.folder(create_folder).*get)(name, false);
    return name;
}

// ---- loading and saving

void Companions::load_texts() {
    if (!notes_.modified())
        notes_.load(name_of(&TESK::Common_parameters_directory::get_notes_filename, false));
    Companion_text status(status_memo);
    status.load(name_of(&TESK::Common_parameters_directory::get_status_filename, false));
    status_memo.set_read_only(true);
}

void Companions::load_details_text() {
    if (!details_text_.modified())
        details_text_.load(name_of(&TESK::Common_parameters_directory::get_details_filename, false));
}

Save_outcome Companions::save_one(Companion_text& text, Name_of_companion get, bool wanted) {
    while (wanted && text.modified()) {
        if (text.save(name_of(get, true)).ok())
            break;
        const Save_outcome answer = ask_after_failed_save();
        if (answer != Save_outcome::saved)
            return answer;
    }
    return Save_outcome::saved;
}

// Notes that were emptied are left as they are on the disk.
Save_outcome Companions::save() {
    const Save_outcome notes =
        save_one(notes_, &TESK::Common_parameters_directory::get_notes_filename, memo_notes.line_count() > 0);
    if (notes == Save_outcome::aborted)
        return notes;
    return save_one(details_text_, &TESK::Common_parameters_directory::get_details_filename, true);
}

// ---- details

// The page beside the record, and over it the one on the web.
void Companions::reload_details() {
    TESK::Smart_file_name details;
    if (file_.folder(false).get_details_filename(details, true))
        details_html_viewer.navigate(screen_text(details));
    else
        details_html_viewer.navigate("");
    if (!parameters_->details_URL.empty())
        details_html_viewer.navigate(screen_text(parameters_->details_URL));
}

void Companions::leave_details_text() {
    if (!details_text_.modified())
        return;
    save_one(details_text_, &TESK::Common_parameters_directory::get_details_filename, true);
    reload_details();
}

// Names the page of details, and makes an empty one where there is none. False when that cannot be.
bool Companions::make_details_file(TESK::Smart_file_name& details) const {
    details = name_of(&TESK::Common_parameters_directory::get_details_filename, true);
    return details.exists() || platform::write_file(details, html_file, platform::Durability::durable).ok();
}

void Companions::button_edit_details_HTMLClick() {
    TESK::Smart_file_name details;
    if (make_details_file(details))
        details.edit();
}

void Companions::button_edit_details_textClick() {
    TESK::Smart_file_name details;
    if (make_details_file(details))
        edit_as_text(details);
}

void Companions::button_local_detailsClick() {
    parameters_->details_URL = "";
    edit_details_URL.Update();
    reload_details();
    details_pagecontrol.set_active_page(tabsheet_view_details);
}

// ---- notes

void Companions::button_notesClick() {
    if (save() != Save_outcome::aborted)
        edit_as_text(name_of(&TESK::Common_parameters_directory::get_notes_filename, true));
}
