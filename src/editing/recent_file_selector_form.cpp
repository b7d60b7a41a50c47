#include "editing/recent_file_selector_form.h"

#include "editing/page_parts.h"
#include "platform/command_line.h"
#include "platform/file_stream.h"
#include "platform/files.h"
#include "platform/listing.h"
#include "platform/shell.h"
#include "toolkit/screen_language.h"

#include <algorithm>
#include <cstdio>
#include <optional>
#include <string_view>

namespace {

constexpr const char* shortcut_extension = ".lnk";

// The masks of the shortcuts to the files of the masks, which have "|" between them.
std::string shortcut_mask(const std::string& masks) {
    std::string result;
    for (std::size_t start = 0; start <= masks.size();) {
        const std::size_t end = std::min(masks.find('|', start), masks.size());
        if (end > start)
            result += (result.empty() ? "" : ";") + masks.substr(start, end - start) + shortcut_extension;
        start = end + 1;
    }
    return result;
}

// The description in a record file, in its own bytes; "" when its beginning has none.
std::string description_in(const std::string& file) {
    constexpr std::size_t looked_at = std::size_t{64} << 10;
    constexpr std::string_view key = "\ndescription=";
    std::string text(looked_at, '\0');
    text.resize(platform::File_stream(file, false).read(text.data(), text.size()));
    const std::size_t start = text.find(key);
    if (start == std::string::npos)
        return {};
    const std::size_t value = start + key.size();
    return text.substr(value, text.find_first_of("\r\n", value) - value);
}

std::string day_of_change(const std::string& file) {
    const auto time = platform::file_time(file);
    if (!time)
        return {};
    char day[sizeof "2107-12-31"];
    std::snprintf(day, sizeof day, "%04d-%02d-%02d", 1980 + (time->date >> 9), time->date >> 5 & 15,
                  time->date & 31);
    return day;
}

} // namespace

// The shortcuts to documents, the latest first, shown by the names of the documents.
class Trecent_file_selector_form::Recent_documents : public Folder_source {
public:
    std::vector<Folder_entry> files(const std::string&, const std::string& mask) override {
        std::vector<Folder_entry> found;
        for (const std::string& shortcut : platform::shell().recent_documents()) {
            const std::string name = shortcut.substr(shortcut.rfind('\\') + 1);
            if (fits(name, record_text(mask)))
                found.push_back({shown_line(shown_name(name), shortcut), screen_text(shortcut)});
        }
        return found;
    }
    std::vector<Folder_entry> folders(const std::string&) override { return {}; }

private:
    static bool fits(const std::string& name, const std::string& masks) {
        for (std::size_t start = 0; start <= masks.size();) {
            const std::size_t end = std::min(masks.find(';', start), masks.size());
            if (platform::matches_mask(name, masks.substr(start, end - start)))
                return true;
            start = end + 1;
        }
        return false;
    }
    // The file with its folder, the day of its last change and its description.
    static std::string shown_line(const std::string& name, const std::string& shortcut) {
        std::string line = screen_text(name);
        const auto tell = [&line](const std::string& text) {
            if (!text.empty())
                line += " \xE2\x80\x93 " + text;
        };
        const std::optional<std::string> file = platform::shell().resolve_shortcut(shortcut);
        if (!file)
            tell(worded("not there any more"));
        else {
            TESK::Directory_name folder("");
            TESK::File_name(file->c_str()).get_path(folder, true);
            tell(screen_text(folder));
            tell(day_of_change(*file));
            tell(screen_text(description_in(*file)));
        }
        return line;
    }
    static std::string shown_name(const std::string& name) {
        return name.substr(0, name.size() - std::string(shortcut_extension).size());
    }
};

Trecent_file_selector_form::Trecent_file_selector_form()
    : TForm("recent_file_selector_form", "Enter or select file to edit"),
      recent_shelllistview(fill(add<TShellListView>("recent_shelllistview"))),
      empty_label(
          add_note(*this, "empty_label",
                   "Nothing has been edited yet. New makes a file, and Open opens one that is there.")),
      selected_fileeditbar(add<TAutoFileEditBar>("selected_fileeditbar")),
      required_label(add_note(*this, "required_label", "An existing file name must be selected now.")),
      cancel_label(add_note(*this, "cancel_label",
                            "To create a new file enter the filename above (Press [Select] to specify the "
                            "folder) and press enter.")),
      ok_button(
          add_button(add_row(*this, "panel_buttons"), "ok_button", "OK",
                     "Edit the file of the chosen line or, without one, the file whose name is entered.")),
      open_button(add_button(*ok_button.parent(), "open_button", "Open", "Edit a file that is there.")),
      new_button(add_button(*ok_button.parent(), "new_button", "New",
                            "Make a new file: asks for its name and its folder.")),
      example_button(add_button(*ok_button.parent(), "example_button", "Example",
                                "Put an example to try the program on beside your projects, and edit it.")),
      cancel_button(add_button(*ok_button.parent(), "cancel_button", "Cancel")),
      recent_documents_(std::make_unique<Recent_documents>()) {
    set_hint("You can select a recently edited file");
    recent_shelllistview.set_hint(hint());
    recent_shelllistview.set_source(recent_documents_.get());
    recent_shelllistview.on_double_click = [this] { recent_shelllistview_onitemdblclick(); };
    // What was done last counts: a name that is entered, or a line that is chosen.
    selected_fileeditbar.OnChange = [this] { recent_shelllistview.set_item_index(-1); };
    set_bounds({0, 0, 860, 460});
    ok_button.set_default(true);
    ok_button.set_modal_result(Modal_result::ok);
    ok_button.on_click = [this] { ok_button_onclick(); };
    open_button.on_click = [this] { open_button_onclick(); };
    new_button.on_click = [this] { new_button_onclick(); };
    example_button.on_click = [this] { example_button_onclick(); };
    cancel_button.set_cancel(true);
    cancel_button.set_modal_result(Modal_result::cancel);
}

Trecent_file_selector_form::~Trecent_file_selector_form() = default;

void Trecent_file_selector_form::bind(TESK::Filtered_file_name& file_name, bool file_required,
                                      const std::string& help_folder, const std::string& other_masks) {
    file_name_ = &file_name;
    makes_new_file_ = false;
    selected_fileeditbar.bind_to(&file_name, nullptr, nullptr, nullptr,
                                 help_folder.empty() ? nullptr : help_folder.c_str());
    std::string masks;
    file_name.get_default_filter(masks);
    recent_shelllistview.set_mask(screen_text(shortcut_mask(masks + '|' + other_masks)));
    // One of the two notes: each tells what a user is to do who finds no line to choose.
    cancel_button.set_visible(!file_required);
    required_label.set_visible(file_required);
    cancel_label.set_visible(!file_required);
    example_button.set_visible(make_example != nullptr);
    recent_shelllistview.set_folder(
        screen_text(platform::shell().special_folder(platform::folder_recent_documents)));
    empty_label.set_visible(recent_shelllistview.count() == 0);
}

void Trecent_file_selector_form::take(const std::string& file_name) {
    *file_name_ = file_name;
    selected_fileeditbar.Update();
    set_modal_result(Modal_result::ok);
}

// Takes the file of the chosen line. False when it is gone: the shortcut itself must not be taken for the
// file.
bool Trecent_file_selector_form::take_line() {
    const int index = recent_shelllistview.item_index();
    if (file_name_ == nullptr || index < 0)
        return false;
    const std::string chosen = record_text(recent_shelllistview.path(index));
    const bool is_shortcut = TESK::File_name(chosen.c_str()).has_ext("lnk");
    const auto file = is_shortcut ? platform::shell().resolve_shortcut(chosen) : std::optional(chosen);
    if (file)
        take(*file);
    return file.has_value();
}

// The line that is chosen, or else what is entered.
void Trecent_file_selector_form::ok_button_onclick() {
    if (recent_shelllistview.item_index() < 0 || take_line())
        return;
    set_modal_result(Modal_result::none);
    show_message("This file is not there any more:\n" + recent_shelllistview.item_text());
}

// Lets the dialog ask for a file of the type in choice.
bool Trecent_file_selector_form::ask_for_file(TFileDialog& dialog) const {
    std::string text;
    dialog.default_extension = screen_text(file_name_->get_default_extension(text));
    dialog.filter = screen_text(file_name_->get_dialog_filter(text)) + "|All files (*.*)|*.*";
    dialog.initial_folder =
        screen_text(platform::shell().special_folder(platform::folder_personal_documents));
    return dialog.execute() && !dialog.file_name.empty();
}

void Trecent_file_selector_form::open_button_onclick() {
    TFileDialog dialog;
    dialog.title = "Open";
    dialog.must_exist = true;
    if (file_name_ != nullptr && ask_for_file(dialog))
        take(record_text(dialog.file_name));
}

void Trecent_file_selector_form::new_button_onclick() {
    TFileDialog dialog(TFileDialog::Purpose::save);
    dialog.title = "New";
    if (file_name_ == nullptr || !ask_for_file(dialog))
        return;
    const std::string name = record_text(dialog.file_name);
    const std::string refusal = platform::refusal_of_name(name);
    if (screen_text(name) != dialog.file_name || !refusal.empty()) {
        show_message(refusal.empty() ? "The suite cannot write this name down:\n" + dialog.file_name
                                     : refusal);
        return;
    }
    // A file that is there is nobody's new file: it is edited as it is, if that is what the user wants.
    const bool is_there = platform::exists(name);
    if (is_there && message_box("There is a file of this name already. Edit it?\n" + dialog.file_name,
                                "File already exists", Button_set::yes_no) != Modal_result::yes)
        return;
    makes_new_file_ = !is_there;
    take(name);
}

void Trecent_file_selector_form::example_button_onclick() {
    const std::string file = make_example && file_name_ != nullptr ? make_example() : "";
    if (!file.empty())
        take(file);
}
