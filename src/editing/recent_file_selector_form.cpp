#include "editing/recent_file_selector_form.h"

#include "platform/listing.h"
#include "platform/shell.h"

#include <algorithm>
#include <optional>

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

Place filling() {
    Place place;
    place.stretch = 1;
    return place;
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
                found.push_back({screen_text(shown_name(name)), screen_text(shortcut)});
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
    static std::string shown_name(const std::string& name) {
        return name.substr(0, name.size() - std::string(shortcut_extension).size());
    }
};

Trecent_file_selector_form::Trecent_file_selector_form()
    : TForm("recent_file_selector_form", "Enter or select file to edit"),
      recent_shelllistview(add<TShellListView>("recent_shelllistview")),
      selected_fileeditbar(add<TAutoFileEditBar>("selected_fileeditbar")),
      required_label(add<TLabel>("required_label", "An existing file name must be selected now.", true)),
      cancel_label(add<TLabel>("cancel_label",
                               "To create a new file enter the filename above (Press [Select] to specify the "
                               "folder) and press enter.",
                               true)),
      ok_button(add<TPanel>("panel_buttons", Layout::row).add<TButton>("ok_button", "OK")),
      cancel_button(ok_button.parent()->add<TButton>("cancel_button", "Cancel")),
      recent_documents_(std::make_unique<Recent_documents>()) {
    set_hint("You can select a recently edited file");
    recent_shelllistview.set_hint(hint());
    recent_shelllistview.set_place(filling());
    recent_shelllistview.set_source(recent_documents_.get());
    recent_shelllistview.on_double_click = [this] { recent_shelllistview_onitemdblclick(); };
    set_bounds({0, 0, 720, 460});
    ok_button.set_default(true);
    ok_button.set_modal_result(Modal_result::ok);
    cancel_button.set_cancel(true);
    cancel_button.set_modal_result(Modal_result::cancel);
}

Trecent_file_selector_form::~Trecent_file_selector_form() = default;

void Trecent_file_selector_form::bind(TESK::Filtered_file_name& file_name, bool file_required,
                                      const std::string& help_folder, const std::string& other_masks) {
    file_name_ = &file_name;
    selected_fileeditbar.bind_to(&file_name, nullptr, nullptr, nullptr,
                                 help_folder.empty() ? nullptr : help_folder.c_str());
    std::string masks;
    file_name.get_default_filter(masks);
    recent_shelllistview.set_mask(screen_text(shortcut_mask(masks + '|' + other_masks)));
    cancel_button.set_visible(!file_required);
    required_label.set_visible(file_required);
    recent_shelllistview.set_folder(
        screen_text(platform::shell().special_folder(platform::folder_recent_documents)));
}

void Trecent_file_selector_form::recent_shelllistview_onitemdblclick() {
    const int index = recent_shelllistview.item_index();
    if (file_name_ == nullptr || index < 0)
        return;
    const std::string chosen = record_text(recent_shelllistview.path(index));
    TESK::Filtered_file_name& file_name = *file_name_;
    const std::string before = file_name;
    file_name = chosen;
    if (file_name.has_ext("lnk")) {
        const std::optional<std::string> target = platform::shell().resolve_shortcut(chosen);
        if (!target) {
            // The shortcut itself must not be taken for the file by a later OK.
            file_name = before;
            return;
        }
        file_name = *target;
    }
    selected_fileeditbar.Update();
    set_modal_result(Modal_result::ok);
}
