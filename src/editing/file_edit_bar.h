// A row that shows one file name of a record: its status, the name, and buttons that choose, edit, clear and
// qualify it. A name that begins with "<" means no file, and every button that needs one passes it over.
#pragma once

#include "editing/auto_edits.h"
#include "editing/auto_status.h"
#include "names/filtered_file_name.h"
#include "names/smart_directory_name.h"
#include "toolkit/button.h"
#include "toolkit/dialogs.h"
#include "toolkit/label.h"
#include "toolkit/panel.h"

#include <functional>
#include <optional>

// The name that means no file, and that no user has chosen yet.
constexpr const char* no_file_name = "<Currently not selected>";

// Asks for a file: of the kinds that `file` can be, which is suggested, or for null of any kind, beginning in
// the folder. True when one was chosen; the dialog has its name.
bool ask_for_file(TFileDialog& dialog, const TESK::Filtered_file_name* file,
                  const TESK::Directory_name& folder);

class TAutoFileEditBar : public TPanel {
public:
    explicit TAutoFileEditBar(std::string name);

    // The file of that name is shown and edited; null shows none. The caption is taken unless the bar has one
    // already; null is the description of the file's kind. The report tells details of the file. The status
    // is the record's, or null for one of the bar's own: whether the file exists.
    void bind_to(TESK::Filtered_file_name* name, const char* caption = nullptr,
                 TESK::Smart_file_name* report = nullptr, TESK::Validation_status* record_status = nullptr,
                 const char* help_URL = nullptr);
    void Update() override;

    // Where a name without a path belongs; typed names are then left as they are.
    void set_directory(const TESK::Directory_name& folder);
    // The program that edits the files, and the caption of the button that starts it. Null shows no button,
    // and the file is edited by what the desktop has for it.
    void set_edit_program(const TESK::File_name* program, const char* caption);
    const TESK::File_name* get_edit_program() const { return edit_program ? &*edit_program : nullptr; }

    // What the buttons do.
    void edit_button_clicked();
    void relative_button_clicked();
    void filename_button_clicked();
    void cancel_button_clicked();
    void validate_button_clicked();

    std::function<void()> OnChange;        // the user types a name
    std::function<void()> on_after_change; // the name is another, however it came, or an editor was started

    TLabel& panel_caption;
    TAutoStringEdit& filename_edit;
    TButton& filename_button;
    TButton& edit_button;
    TButton& qualify_button;
    TButton& validate_button;
    TButton& cancel_button;
    TButton& help_button;
    TFileDialog file_requestor_dialog;

private:
    bool has_file() const;
    void show_status();
    void name_typed();
    void name_left();
    // The user gave a name: it goes into the file, or into the edit where there is none.
    void take_name(const std::string& name);
    // What follows from another name, whether it was typed, selected, dropped or cleared.
    void name_changed();
    void take_dropped(const std::vector<std::string>& names);
    void after_change();

    TESK::Filtered_file_name* file = nullptr;
    std::optional<TESK::File_name> edit_program;
    TESK::Smart_file_name* status_file = nullptr;
    TESK::Validation_status own_status = TESK::Validation_status::unknown;
    TESK::Validation_status* status = &own_status;
    TESK::Smart_directory_name directory{""};
    bool directory_is_fixed = false;
    bool is_typed = false; // and not yet told
};
