// The frame that the suite's parameter editors share, made of rooms that each do one thing: the file and how
// it is saved, its companions (details, notes, status), the documentation, the language of the screens, and
// the start of programs on the file. An editor places its own controls in the frame and hands over its
// record.
#pragma once

#include "editing/auto_choices.h"
#include "editing/auto_edits.h"
#include "editing/details_page.h"
#include "editing/documentation_page.h"
#include "editing/edited_file.h"
#include "editing/language_page.h"
#include "editing/notes_pages.h"
#include "editing/program_starter.h"
#include "editing/recent_file_selector_form.h"
#include "toolkit/timer.h"
#include "trees/user_settings.h"

#include <string>

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
    };

    // Chooses or confirms the file, loads it and shows it. False, and nothing is loaded, when the user
    // refused a file name.
    bool bind_to(const Editor& editor);

    void set_file(const std::string& file_name);
    // The file that is edited, "" while there is none.
    std::string get_parameter_file_name() const { return file.name(); }

    // The suite's documentation on the web mirrors the folders below `local_root` under `url_root`; null
    // leaves none.
    void set_web_documentation(const char* url_root, const char* local_root) {
        documentation.set_web(url_root, local_root);
    }
    // The page of the documentation by its place in it ("project\page.htm"): the local file where it exists,
    // otherwise its address on the web; "" where there is neither.
    std::string help_lookup(const std::string& page) const { return documentation.help_lookup(page); }
    // Opens that page, when there is one.
    void view_document(const std::string& page) const { documentation.view_document(page); }

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
    // Whether the record or a companion was changed and not saved.
    bool has_changes() const { return file.has_changes() || notes.has_changes() || details.has_changes(); }
    // The record, under a name that is asked for where it has none, and its companions.
    Save_outcome save_all();

    // Saves, then starts a program: "program" options "file" "extra". Null leaves out options or extra. With
    // `wait` it ends when the program has ended. True when the program was started; false, too, when the user
    // aborted the save.
    bool run(const char* program, const char* options, const char* file, const char* extra, bool wait,
             int show_state);
    // The same on the file that is edited.
    bool run_on_file(const char* program, const char* options, const char* extra, bool wait, int show_state);

    const TESK::Ustring& get_command_line() const { return programs.get_command_line(); }
    const TESK::User_settings& get_settings() const { return settings_; }

    // Asked once the changes are settled, whichever way the form is about to end; false has it stay.
    std::function<bool()> on_leave;

    TAutoStringEdit& edit_description;
    TPageControl& page_control_parameters_etc;
    TTabSheet& tabsheet_parameters;
    TPanel& parameters_panel;

    TButton& ok_button;
    TButton& cancel_button;
    TButton& save_as_button;
    TButton& run_button;
    TAutoCheckBox& checkbox_advanced_mode;
    TButton& button_windows_explore;
    TButton& button_app_explore;
    TStatusLine& status_line; // where notices go

private:
    // The pages of the rooms, in their order on the screen; they stand here since rooms share the page
    // control.
    struct Sheets {
        explicit Sheets(TPageControl& pages);
        TTabSheet& details;
        TTabSheet& notes;
        TTabSheet& help;
        TTabSheet& commands;
        TTabSheet& status;
        TTabSheet& translation;
    };

    TESK::User_settings settings_;
    Sheets sheets_;

public:
    Edited_file file;
    Details_page details;
    Notes_pages notes;
    Documentation_page documentation;
    Program_starter programs;
    Language_page language;

private:
    void wire();
    void update_title();
    void update_folder_controls();
    Save_outcome save_companions();
    bool commit_focus();
    void keep_geometry();
    void apply_settings();
    void show_record();
    void reload();
    void look_for_changes();
    void return_to_window();

    bool may_close();
    bool may_leave() const { return !on_leave || on_leave(); }
    void cancel_button_onclick();
    void close_with(Modal_result result);
    void ok_button_onclick();
    void button_app_exploreClick();

    TControl* parameter_form = nullptr;
    Common_parameters_data_record* parameters = nullptr;
    TControl* parameter_form_panel = nullptr;
    const TESK::Application_data_directory* user_settings_file = nullptr;
    TESK::Ustring run_program;
    TESK::Ustring explorer_program;
    Save_outcome last_save_ = Save_outcome::saved;
    bool asks_before_closing_ = true;
    TTimer timer_title_{500};
};
