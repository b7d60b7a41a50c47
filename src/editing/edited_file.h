// The record file that an editor edits: its name, how it is loaded and saved, and how the record's folder
// goes along when the name changes. What has to be asked, it asks.
#pragma once

#include "editing/known_contents.h"
#include "editing/save_questions.h"
#include "names/filtered_file_name.h"
#include "records/common_parameters.h"
#include "toolkit/dialogs.h"
#include "toolkit/screen_language.h"
#include "trees/common_parameters_directory.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

class Trecent_file_selector_form;

class Edited_file {
public:
    Edited_file() : dialog(TFileDialog::Purpose::save) {}

    // What is edited: both outlive this. Without a name (null) it makes one of its own. `is_given` tells
    // whether the name is a choice already.
    void bind(Common_parameters_data_record& parameters, TESK::Filtered_file_name* name, bool is_given);
    bool is_bound() const { return parameters_ != nullptr; }

    // Lets the user say which file it is, unless that is known: in the selector, where there is one, and by a
    // question where the record needs a name at once. False when they refused.
    bool choose(Trecent_file_selector_form* selector, const std::string& help_folder,
                const std::string& other_masks);
    // Whether the user asked for a new file, to work in it from now on.
    bool is_wanted_at_once() const { return is_wanted_at_once_ && is_new_file_; }
    void set_name(const std::string& file_name);
    // "" while there is none.
    std::string name() const;
    bool is_given() const { return is_given_; }
    // Whether the file was not there when it was opened, and has not been saved since.
    bool is_new_file() const { return is_new_file_; }
    // The file's name or, for a record that is known by its folder, the folder's.
    std::string shown_name() const;

    // The folder of the record. While there is no file it is the current folder, which is nobody's:
    // has_folder() tells whether there is one of the record's own.
    TESK::Common_parameters_directory folder(bool create) const;
    bool has_folder() const;
    // Keeps the file as it stands in the record's folder, where there is one.
    platform::Write_result back_up() const;

    // Reads the record: the file's values, and where it has none those that the record had when it was bound.
    // A large file that the user does not want to wait for, or any longer, counts as one that cannot be read.
    void load();
    // Takes the record as it is now for one that nobody has changed.
    void take_for_saved() { saved_text_ = text_of_record(); }
    bool has_changes() const { return text_of_record() != saved_text_; }
    // Whether another program has changed the file, as a save or a look at the disk has seen, while nothing
    // was changed here: what is on the screen is no longer what is in the file.
    bool is_outdated() const { return is_outdated_; }
    void look_at_disk();

    // Writes the record under the name that the dialog holds, which is asked for when there is none. The
    // folder follows a change of name, and names of files in it follow the folder. A file that holds the
    // record already is not written again. While the disk cannot be reached the user is asked, and so they
    // are when another program has changed the file as well; what they choose to load is on the screen then,
    // and the answer is aborted.
    Save_outcome save();
    // Asks for another name, which the dialog then holds. False, and nothing changed, when there is none or
    // its file must not be replaced.
    bool choose_another_name();

    // The file has come into being by a save, or has been saved under another name.
    std::function<void()> on_moved;
    // Tells what is not worth a question.
    std::function<void(const std::string& text)> on_notice;
    // Has the record read anew and shown.
    std::function<void()> on_reload;

    TFileDialog dialog;

private:
    bool is_large() const;
    bool may_load();
    bool read_record();
    bool name_is_chosen() const;
    bool take_choice();
    bool require_name();
    std::string shown_type() const;
    bool run_dialog();
    bool prepare_filename(std::string& name);
    bool may_replace(const std::string& name);
    bool holds_unseen(const std::string& name) const;
    bool may_folder_follow(const std::string& name, std::vector<std::string>& agreed) const;
    platform::Copy_result write_with_folder(const std::string& name,
                                            const std::function<platform::Write_result()>& write);
    platform::Write_result write_record(const std::string& name);
    Save_outcome write_to(const std::string& name);
    Save_outcome write_where_needed(const std::string& name);
    void notice(const std::string& text) const;
    void note_saved();
    std::string text_of_record() const;

    Common_parameters_data_record* parameters_ = nullptr;
    TESK::Filtered_file_name* name_ = nullptr;
    std::unique_ptr<TESK::Filtered_file_name> own_name_;
    bool is_given_ = false;
    bool is_new_file_ = false;
    bool is_wanted_at_once_ = false;
    bool could_not_read_ = false;   // the file is there, and its contents are not in the record
    std::string agreed_to_replace_; // the name that the user lets the next save replace
    std::string agreed_to_load_;    // the large file that the user lets be loaded
    bool is_outdated_ = false;
    std::string text_when_bound_;
    std::string text_in_file_; // the record as it was when it was read or written
    std::string saved_text_;   // the same, as the editor has put it in order since
    Known_contents known_;
};
