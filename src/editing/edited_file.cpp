#include "editing/edited_file.h"

#include "editing/loading_window.h"
#include "editing/recent_file_selector_form.h"
#include "foundation/code_page_1252.h"
#include "platform/command_line.h"
#include "platform/file_writer.h"
#include "platform/files.h"
#include "records/moved_file_names.h"
#include "records/vv_file.h"
#include "records/vv_text.h"

namespace {

// The folder that goes along with a file when that gets another name, without a separator at its end.
TESK::Directory_name folder_that_follows(const std::string& file, Directory_mode mode) {
    TESK::Directory_name folder("");
    if (mode == Directory_mode::containing_folder)
        TESK::File_name(file.c_str()).get_path(folder, true);
    else
        folder = TESK::without_extension(TESK::File_name(file.c_str()));
    std::string text = folder;
    while (text.size() > 1 && text.ends_with('\\'))
        text.pop_back();
    return TESK::Directory_name(text.c_str());
}

// Why a folder could not go along, and what the reason holds for; why the record could not be written is told
// elsewhere.
std::string cause_of(const platform::Copy_result& copied, bool is_of_record) {
    std::string cause = is_of_record ? "" : copied.reason;
    if (!copied.not_copied.empty())
        cause += '\n' + some_of(copied.not_copied);
    if (!copied.replaced.empty())
        cause += (cause.empty() ? "" : "\n") + std::string(not_put_back) + '\n' + some_of(copied.replaced);
    return cause;
}

// The folders above a file that is to be: those that were missing go again unless they are kept.
class Folders_above {
public:
    explicit Folders_above(TESK::Directory_name folder) {
        const std::string deepest = folder;
        while (!folder.empty() && !platform::exists(folder)) {
            missing_.push_back(folder);
            TESK::Directory_name above("");
            folder.get_path(above, true);
            folder = above;
        }
        platform::make_folders(deepest);
    }
    void keep() { missing_.clear(); }
    Folders_above(const Folders_above&) = delete;
    Folders_above& operator=(const Folders_above&) = delete;
    ~Folders_above() {
        for (const std::string& folder : missing_)
            platform::remove_folder(folder);
    }

private:
    std::vector<std::string> missing_; // the deepest first
};

// Whether a file of that name is possible as far as can be told without writing it.
bool can_be_written(const std::string& name) {
    return !name.ends_with('\\') && !platform::is_folder(name) && !platform::is_read_only(name);
}

} // namespace

// ---- the name

void Edited_file::bind(Common_parameters_data_record& parameters, TESK::Filtered_file_name* name,
                       bool is_given) {
    parameters_ = &parameters;
    name_ = name;
    is_given_ = is_given;
    parameters_->set_preserve_unexpected(true);
    if (name_ == nullptr) {
        own_name_ =
            std::make_unique<TESK::Filtered_file_name>("", "DAT", parameters_->get_type_description(), "*.*");
        name_ = own_name_.get();
    }
    text_when_bound_ = text_of_record();
    std::string extension;
    std::string filter;
    dialog.default_extension = screen_text(name_->get_default_extension(extension));
    dialog.filter = screen_text(name_->get_dialog_filter(filter)) + "|All files (*.*)|*.*";
}

bool Edited_file::choose(Trecent_file_selector_form* selector, const std::string& help_folder,
                         const std::string& other_masks) {
    const Directory_mode mode = parameters_->get_directory_mode();
    if (!is_given_ && selector != nullptr) {
        selector->bind(*name_,
                       mode == Directory_mode::project_folder || mode == Directory_mode::containing_folder,
                       help_folder, other_masks);
        if (selector->show_modal() != Modal_result::ok)
            return false;
        is_given_ = take_choice();
        is_wanted_at_once_ = selector->makes_new_file();
    }
    if (!is_given_ && mode != Directory_mode::file_folder && !require_name())
        return false;
    dialog.file_name = is_given_ ? screen_text(*name_) : "";
    is_new_file_ = !is_given_ || !name_->exists();
    return true;
}

bool Edited_file::name_is_chosen() const {
    return !name_->empty() && !name_->starts_with('<');
}

// Takes what the user entered as the file. False when that was nothing: the name that stands for none is no
// choice while there is no such file.
bool Edited_file::take_choice() {
    if (!name_is_chosen())
        return false;
    if (!name_->exists()) {
        if (name_->get_name(false) == "noname")
            return false;
        std::string extension;
        if (name_->get_ext().empty())
            name_->set_ext(name_->get_default_extension(extension).c_str());
    }
    name_->qualify_in_root();
    return true;
}

bool Edited_file::require_name() {
    while (!is_given_) {
        const std::string text =
            shown_type() + worded(" file type has an associated directory.") +
            "\nIn order for this editor to work correctly you must give a file name now.";
        if (message_box(text, "File name required now", Button_set::ok_cancel) != Modal_result::ok)
            return false;
        is_given_ = run_dialog();
        if (is_given_)
            *name_ = record_text(dialog.file_name);
    }
    return true;
}

std::string Edited_file::shown_type() const {
    return worded(screen_text(parameters_->get_type_description()));
}

// Asks for a name, from the one that there is. False, and the dialog as it was, when none was chosen.
bool Edited_file::run_dialog() {
    const std::string before = dialog.file_name;
    TESK::Directory_name initial_folder("");
    if (name_is_chosen())
        name_->get_path(initial_folder, true);
    dialog.initial_folder = screen_text(initial_folder);
    dialog.title = worded("Save %1 as", shown_type());
    while (dialog.execute() && !dialog.file_name.empty()) {
        // A character that names lack would be left out, and another file written.
        const std::string refusal = platform::refusal_of_name(dialog.file_name);
        if (!refusal.empty()) {
            message_box(refusal, "Unable to save", Button_set::ok);
            continue;
        }
        if (typable_text(dialog.file_name) == dialog.file_name)
            return true;
        if (ask_after_failed_save() != Save_outcome::saved)
            break;
    }
    dialog.file_name = before;
    return false;
}

void Edited_file::set_name(const std::string& file_name) {
    *name_ = file_name;
    dialog.file_name = screen_text(file_name);
    is_given_ = !file_name.empty();
}

std::string Edited_file::name() const {
    return name_ != nullptr && is_given_ ? std::string(*name_) : std::string();
}

std::string Edited_file::shown_name() const {
    if (parameters_->get_directory_mode() == Directory_mode::containing_folder)
        return folder(false);
    return name();
}

// ---- the folder

TESK::Common_parameters_directory Edited_file::folder(bool create) const {
    return TESK::Common_parameters_directory(*name_, parameters_->get_directory_mode(), create);
}

bool Edited_file::has_folder() const {
    return is_given_ &&
           (parameters_->get_directory_mode() == Directory_mode::containing_folder || name_->exists()) &&
           folder(false).exists();
}

platform::Write_result Edited_file::back_up() const {
    if (is_new_file_ || !has_folder())
        return {};
    TESK::Smart_file_name backup;
    folder(false).get_backup_filename(backup, false);
    if (platform::entry_identity(backup) == platform::entry_identity(*name_))
        return {};
    return platform::copy_file(*name_, backup);
}

// ---- loading and saving

bool Edited_file::is_large() const {
    constexpr std::uint64_t asked_above = std::uint64_t{16} << 20;
    const std::uint64_t bytes = platform::file_size(*name_);
    return bytes > asked_above && bytes <= TESK::VV_file::largest_file;
}

// The user is asked once about each file.
bool Edited_file::may_load() {
    if (!is_large() || agreed_to_load_ == *name_)
        return true;
    const bool agreed = may_load_large_file(*name_, platform::file_size(*name_));
    agreed_to_load_ = agreed ? std::string(*name_) : "";
    return agreed;
}

// The reading of a large file is shown, and can be stopped.
bool Edited_file::read_record() {
    TESK::VV_file file(name_->c_str());
    if (!is_large())
        return file.get(*parameters_);
    Loading_window window(*name_);
    file.set_progress(
        [&window](std::size_t read, std::size_t size) { return window.show_progress(read, size); });
    const bool was_read = file.get(*parameters_);
    if (!was_read)
        agreed_to_load_.clear();
    return was_read;
}

void Edited_file::load() {
    is_outdated_ = false;
    if (!is_given_)
        return;
    offer_interrupted_save(*name_);
    undo_interrupted_copy(folder_that_follows(*name_, parameters_->get_directory_mode()));
    const std::string before = text_of_record();
    // First: what changes while the record is read counts as changed.
    known_.take(*name_);
    TESK::VV_text(text_when_bound_).get(*parameters_);
    const bool was_read = may_load() && read_record();
    if (!was_read)
        TESK::VV_text(before).get(*parameters_);
    // A loaded record knows its file; what could not be read must not be taken for a new one.
    could_not_read_ = !was_read && name_->exists();
    if (could_not_read_)
        parameters_->set_loaded_from(*name_);
    text_in_file_ = saved_text_ = text_of_record();
}

std::string Edited_file::text_of_record() const {
    TESK::VV_text text;
    text.set(*parameters_);
    return text.text();
}

// The name to save under. False when there is none, and the user chose none.
bool Edited_file::prepare_filename(std::string& name) {
    const bool asks = dialog.file_name.empty();
    if (asks && !run_dialog())
        return false;
    name = record_text(dialog.file_name);
    if (!asks || may_replace(name))
        return true;
    dialog.file_name.clear();
    return false;
}

// Whether nothing is lost when the name is written, or the user agrees to that. They are asked once.
bool Edited_file::may_replace(const std::string& name) {
    if (!platform::exists(name) || TESK::equal_ignoring_case(name, agreed_to_replace_))
        return true;
    if (!may_replace_file(name))
        return false;
    agreed_to_replace_ = name;
    return true;
}

// Whether the file holds what never came to the screen: it could not be read when it was opened, or has only
// come into being since.
bool Edited_file::holds_unseen(const std::string& name) const {
    return (could_not_read_ || is_new_file_) && TESK::equal_ignoring_case(name, *name_);
}

// Whether the folder may replace what has its names where it goes. The user is asked about the same files
// once.
bool Edited_file::may_folder_follow(const std::string& name, std::vector<std::string>& agreed) const {
    const Directory_mode mode = parameters_->get_directory_mode();
    const auto replaced =
        platform::replaced_by_copy(folder_that_follows(*name_, mode), folder_that_follows(name, mode));
    if (replaced != agreed && !replaced.empty() && !may_replace_files(replaced))
        return false;
    agreed = replaced;
    return true;
}

platform::Write_result Edited_file::write_record(const std::string& name) {
    TESK::VV_file file(name.c_str());
    if (!file.set(*parameters_))
        return platform::write_failure(platform::Write_error::bad_name);
    if (file.get_last_write().ok())
        known_.take({platform::Read_outcome::read, file.take_last_text()});
    return file.get_last_write();
}

// Takes the record's folder along to another name, and with it the files that the record names. Where the
// record cannot be written, nothing has been changed.
platform::Copy_result Edited_file::write_with_folder(const std::string& name,
                                                     const std::function<platform::Write_result()>& write) {
    const Directory_mode mode = parameters_->get_directory_mode();
    const TESK::Directory_name old_folder = folder_that_follows(*name_, mode);
    const TESK::Directory_name new_folder = folder_that_follows(name, mode);
    if (!platform::is_folder(old_folder) || TESK::equal_ignoring_case(old_folder, new_folder))
        return {write(), {}, {}, {}};
    TESK::Moved_file_names moved_names(*parameters_, old_folder, new_folder);
    const platform::Copy_result copied = platform::copy_tree(old_folder, new_folder, [&] {
        const platform::Read_result before = platform::read_file(name);
        const platform::Write_result written = write();
        // It may stand there all the same, and not outlive a power failure.
        if (!written.ok() && before.outcome == platform::Read_outcome::absent)
            platform::delete_file(name);
        else if (!written.ok() && before.ok() && platform::read_file(name).contents != before.contents)
            platform::write_file(name, before.contents, platform::Durability::durable);
        return written;
    });
    if (!copied.ok()) {
        moved_names.undo();
        return copied;
    }
    TESK::Common_parameters_directory(new_folder, Directory_mode::own_folder, false).write_folder_icon();
    if (!copied.passed_over.empty())
        notice(worded("What is no file was not copied: %1", some_of(copied.passed_over)));
    return copied;
}

Save_outcome Edited_file::write_to(const std::string& name) {
    const bool moves = is_given_ && !is_new_file_ && !TESK::equal_ignoring_case(name, *name_);
    std::vector<std::string> agreed; // that the folder replaces them
    for (;;) {
        TESK::Directory_name path("");
        TESK::File_name(name.c_str()).get_path(path, true);
        Folders_above folders(path);
        const bool is_readable =
            !could_not_read_ || platform::read_file(*name_, TESK::VV_file::largest_file).outcome !=
                                    platform::Read_outcome::unreadable;
        if (is_readable && holds_unseen(name) && !may_replace(name))
            return Save_outcome::aborted;
        bool is_tried = false; // whether it came to the record itself
        const auto write = [&] {
            is_tried = true;
            return write_record(name);
        };
        platform::Copy_result written{{platform::Write_error::read_only, ""}, {}, {}, {}};
        if (!moves) {
            written = {write(), {}, {}, {}};
        } else if (can_be_written(name)) {
            if (!may_folder_follow(name, agreed))
                return Save_outcome::aborted;
            written = write_with_folder(name, write);
        }
        if (written.ok()) {
            folders.keep();
            return Save_outcome::saved;
        }
        if (is_tried)
            notice(worded(written.reason));
        const Save_outcome answer = ask_after_failed_save(cause_of(written, is_tried));
        if (answer != Save_outcome::saved)
            return answer;
    }
}

void Edited_file::look_at_disk() {
    if (is_given_ && !is_new_file_ && !could_not_read_ && !has_changes())
        is_outdated_ = known_.compare(*name_) == Known_contents::Comparison::changed;
}

// What nobody has changed since it was read is not written: not over what another program has made of it,
// nor over itself.
Save_outcome Edited_file::write_where_needed(const std::string& name) {
    const bool is_known = !is_new_file_ && !could_not_read_ && TESK::equal_ignoring_case(name, *name_);
    const auto found = is_known ? known_.compare(name) : Known_contents::Comparison::gone;
    if (found == Known_contents::Comparison::changed) {
        if (!has_changes()) {
            is_outdated_ = true;
            return Save_outcome::saved;
        }
        const Conflict_answer answer = ask_about_conflict(name);
        if (answer == Conflict_answer::load && on_reload)
            on_reload();
        if (answer != Conflict_answer::overwrite)
            return Save_outcome::aborted;
    } else if (found == Known_contents::Comparison::same && text_of_record() == text_in_file_) {
        return Save_outcome::saved;
    }
    const Save_outcome outcome = write_to(name);
    if (outcome == Save_outcome::saved)
        note_saved();
    return outcome;
}

void Edited_file::notice(const std::string& text) const {
    if (on_notice)
        on_notice(text);
}

void Edited_file::note_saved() {
    is_outdated_ = false;
    text_in_file_ = saved_text_ = text_of_record();
}

Save_outcome Edited_file::save() {
    std::string name;
    if (!prepare_filename(name))
        return Save_outcome::aborted;
    const Save_outcome outcome = write_where_needed(name);
    if (outcome != Save_outcome::saved)
        return outcome;
    const bool moved = is_new_file_ || !TESK::equal_ignoring_case(name, *name_);
    is_new_file_ = false;
    could_not_read_ = false;
    agreed_to_replace_.clear();
    is_given_ = true;
    *name_ = name;
    if (moved && on_moved) {
        on_moved();
        take_for_saved();
    }
    return Save_outcome::saved;
}

bool Edited_file::choose_another_name() {
    const std::string before = dialog.file_name;
    if (before.empty())
        dialog.file_name = is_given_ ? screen_text(*name_) : "";
    agreed_to_replace_.clear();
    if (run_dialog() && may_replace(record_text(dialog.file_name)))
        return true;
    dialog.file_name = before;
    return false;
}
