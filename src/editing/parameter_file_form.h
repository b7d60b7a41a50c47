// The frame that the suite's parameter editors share: it loads and saves one record file, keeps the file's
// companions (details, notes, status), shows documentation, and starts programs on the file. An editor places
// its own controls in it and hands over its record.
#pragma once

#include "editing/auto_choices.h"
#include "editing/auto_edits.h"
#include "editing/companion_text.h"
#include "editing/recent_file_selector_form.h"
#include "names/filtered_file_name.h"
#include "records/common_parameters.h"
#include "toolkit/page_control.h"
#include "toolkit/timer.h"
#include "toolkit/web_view.h"
#include "trees/common_parameters_directory.h"
#include "trees/program_directory.h"
#include "trees/user_settings.h"

#include <array>
#include <memory>
#include <optional>
#include <string>

namespace TESK {
class Translations_phrases;
}

// What became of a save, for who must decide whether to go on.
enum class Save_outcome {
    saved,
    ignored, // the disk was not reached, and the user goes on all the same
    aborted  // not saved; what asked for the save is not to go on either
};

// How a window of a started program is to appear.
constexpr int show_normal = 1;
constexpr int show_maximised = 3;
constexpr int show_minimised = 6;

class Tparameter_file_form : public TForm {
public:
    // The program's file tells where its documentation lies.
    explicit Tparameter_file_form(const TESK::File_name& program_file);
    ~Tparameter_file_form() override;

    // What an editor hands over. All of it outlives the form, or the form's last use.
    struct Editor {
        TControl* form = nullptr;                            // is asked to Update() after loading
        Common_parameters_data_record* parameters = nullptr; // the record; never null
        TControl* panel = nullptr; // the controls to be placed on the parameters page; null for none
        // The file. Null, and the form makes a name of its own.
        TESK::Filtered_file_name* file_name = nullptr;
        bool file_given = false; // whether the name is a choice already
        // Offered beside the file's own type when recent files are listed, with "|" between the masks.
        std::string other_masks;
        Trecent_file_selector_form* file_selector = nullptr; // asks for the file; null asks for none
        std::string help_folder;                             // of the file selector
        const TESK::Application_data_directory* user_settings_file = nullptr; // null keeps no settings
        TESK::Translations_phrases* phrases = nullptr;                        // null offers no translation
        std::string native_language = "en";
    };

    // Chooses or confirms the file, loads it and shows it. False, and nothing is loaded, when the user
    // refused a file name.
    bool bind_to(const Editor& editor);

    void set_file(const std::string& file_name);
    // The file that is edited, "" while there is none.
    std::string get_parameter_file_name() const;

    // The suite's documentation on the web mirrors the folders below `local_root` under `url_root`; null
    // leaves none.
    void set_web_documentation(const char* url_root, const char* local_root);
    // The page of the documentation by its place in it ("project\page.htm"): the local file where it exists,
    // otherwise its address on the web; "" where there is neither.
    std::string help_lookup(const std::string& page) const;
    // Opens that page, when there is one.
    void view_document(const std::string& page) const;

    void set_explorer_program(const TESK::File_name& name);
    // An empty program takes the button away.
    void show_run_button(const std::string& caption, const std::string& program);
    // What remains to be done once everything is bound: the page of the editor comes to the front.
    void arrange_controls();

    // Each commits what is being typed first. save() writes the record under the name that the file dialog
    // holds, with the folder following a change of name; while the disk cannot be reached the user is asked.
    Save_outcome save();
    // What the last save came to.
    Save_outcome get_last_save() const { return last_save_; }
    // Asks for another name, and saves under it. Aborted too when the user chose none.
    Save_outcome save_as();
    // Reads the record and the user's settings, and has the editor show them. A file that is not there leaves
    // the record's defaults.
    void load();
    // Whether the record or a companion differs from what is on the disk.
    bool has_changes();

    // Saves, then starts a program: "program" options "file" "extra". Null leaves out options or extra. With
    // `wait` it ends when the program has ended. True when the program was started; false, too, when the user
    // aborted the save.
    bool run(const char* program, const char* options, const char* file, const char* extra, bool wait,
             int show_state);
    // The same on the file that is edited.
    bool run_on_file(const char* program, const char* options, const char* extra, bool wait, int show_state);

    const TESK::Ustring& get_command_line() const { return command; }
    const TESK::User_settings& get_settings() const { return settings; }

    bool is_new_file = false;

    TAutoStringEdit& edit_description;
    TPageControl& page_control_parameters_etc;
    TTabSheet& tabsheet_parameters;
    TTabSheet& tabsheet_details;
    TTabSheet& tabsheet_notes;
    TTabSheet& tabsheet_help;
    TTabSheet& tabsheet_commands;
    TTabSheet& tabsheet_status;
    TTabSheet& tabsheet_translation;

    TPanel& parameters_panel;

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
    TMemo& command_history_memo;
    TMemo& status_memo;

    TLabel& documentation_label_installed;
    TLabel& documentation_web_label;
    // In the order help, FAQ, manual, tutorial.
    std::array<TButton*, 4> documentation_buttons;
    std::array<TButton*, 4> documentation_web_buttons;

    TRadioGroup& radiogroup_translation_target_language;
    TEdit& edit_translation_other;

    TButton& ok_button;
    TButton& cancel_button;
    TButton& save_as_button;
    TButton& run_button;
    TAutoCheckBox& checkbox_advanced_mode;
    TButton& button_windows_explore;
    TButton& button_app_explore;

    TFileDialog file_dialog;

private:
    void make_details_page();
    void make_help_page();
    void wire();

    bool choose_file();
    bool name_is_chosen() const;
    bool require_file_name();
    bool run_save_dialog();
    TESK::Common_parameters_directory folder_of_record(bool create) const;
    bool has_folder() const;
    std::string shown_file_name() const;
    void update_title();
    void back_up();
    void update_folder_controls();
    void update_documentation_buttons();

    bool commit_focus();
    void keep_geometry();
    void apply_settings();
    bool prepare_filename(std::string& name);
    Save_outcome save_under_chosen_name();
    Save_outcome write_to(const std::string& name);
    bool may_replace(const std::string& name);
    bool holds_unseen(const std::string& name) const;
    bool let_folder_follow(const std::string& old_name, const std::string& new_name);
    Save_outcome ask_after_failure();
    Save_outcome save_companions();
    Save_outcome save_companion(Companion_text& text, bool wanted,
                                bool (TESK::Common_parameters_directory::*get)(TESK::Smart_file_name&, bool)
                                    const);
    std::string text_of_record();

    bool start(const char* program, const char* options, const char* file, const char* extra, bool wait,
               int show_state);

    void ok_button_onclick();
    void cancel_button_onclick();
    bool may_close();
    void close_with(Modal_result result);

    void load_companions();
    void reload_details();
    void load_details_text();
    void leave_details_text();
    bool make_details_file(TESK::Smart_file_name& file);
    void button_edit_details_HTMLClick();
    void button_edit_details_textClick();
    void button_local_detailsClick();
    void button_notesClick();
    void button_windows_exploreClick();
    void button_app_exploreClick();

    void radiogroup_translation_target_languageClick();
    void translate();
    void translate_new_texts();

    TControl* parameter_form = nullptr;
    Common_parameters_data_record* parameters = nullptr;
    TESK::Filtered_file_name* parameter_file = nullptr;
    std::unique_ptr<TESK::Filtered_file_name> own_parameter_file_;
    TESK::Program_directory program_directory_;
    std::unique_ptr<TESK::Documentation_directory> web_documentation;
    std::string web_root_;
    const TESK::Application_data_directory* user_settings_file = nullptr;
    TESK::User_settings settings;
    TControl* parameter_form_panel = nullptr;
    bool file_given = false;
    bool could_not_read_ = false;   // the file is there, and its contents are not in the record
    std::string agreed_to_replace_; // the name that the user lets the next save replace
    TESK::Ustring command;
    TESK::Ustring run_program;
    TESK::Ustring explorer_program;
    std::string translation_target_language;
    std::string native_language_ = "en";
    TESK::Translations_phrases* phrases = nullptr;

    Companion_text notes_;
    Companion_text details_text_;
    std::string saved_text_; // the record as it is on the disk, or was when it was loaded
    Save_outcome last_save_ = Save_outcome::saved;
    bool asks_before_closing_ = true;
    TTimer timer_translation{300};
    TTimer timer_title_{500};
};
