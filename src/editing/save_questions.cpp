#include "editing/save_questions.h"

#include "editing/bound_control.h"
#include "platform/files.h"
#include "platform/interrupted_save.h"
#include "toolkit/dialogs.h"

#include <algorithm>

namespace {

constexpr const char* save_failed =
    "Unable to save to parameter file (check that the file is not marked as read only)";
constexpr std::size_t most_names = 10;

} // namespace

std::string some_of(const std::vector<std::string>& names) {
    std::string lines;
    for (std::size_t i = 0; i < std::min(names.size(), most_names); ++i)
        lines += (i > 0 ? "\n" : "") + screen_text(names[i]);
    if (names.size() > most_names)
        lines += "\n... (" + std::to_string(names.size()) + ")";
    return lines;
}

Save_outcome ask_after_failed_save(const std::string& cause) {
    const std::string text = save_failed + (cause.empty() ? cause : '\n' + cause);
    switch (message_box(text, "Unable to save", Button_set::abort_retry_ignore)) {
    case Modal_result::retry: return Save_outcome::saved;
    case Modal_result::ignore: return Save_outcome::ignored;
    default: return Save_outcome::aborted;
    }
}

Conflict_answer ask_about_conflict(const std::string& file_name) {
    const std::string text =
        "Another program has changed this file since it was opened:\n" + screen_text(file_name) +
        "\nReplace it by what is shown here? ([No] loads what is there, and gives up what "
        "was changed here)";
    switch (message_box(text, "File changed on disk", Button_set::yes_no_cancel)) {
    case Modal_result::yes: return Conflict_answer::overwrite;
    case Modal_result::no: return Conflict_answer::load;
    default: return Conflict_answer::stay;
    }
}

bool may_load_large_file(const std::string& file_name, std::uint64_t bytes) {
    const std::string text = "This file is very large, and loading it takes a while:\n" +
                             screen_text(file_name) + " (" + std::to_string(bytes >> 20) +
                             " MiB)\nLoad it? ([No] leaves it as it is)";
    return message_box(text, "Large file", Button_set::yes_no) == Modal_result::yes;
}

bool may_replace_file(const std::string& file_name) {
    return message_box("Replace the existing file with this name:\n" + screen_text(file_name),
                       "File already exists", Button_set::yes_no) == Modal_result::yes;
}

bool may_replace_files(const std::vector<std::string>& file_names) {
    return message_box("Replace the existing files with these names:\n" + some_of(file_names),
                       "Files already exist", Button_set::yes_no) == Modal_result::yes;
}

void undo_interrupted_copy(const std::string& folder) {
    const platform::Undone_copy undone = platform::undo_interrupted_copy(folder);
    if (!undone.was_interrupted)
        return;
    const std::string text =
        undone.not_put_back.empty()
            ? "Copying into this folder was interrupted, and what had been replaced was put back:\n" +
                  screen_text(folder)
            : "Copying into this folder was interrupted:\n" + screen_text(folder) + '\n' +
                  std::string(not_put_back) + '\n' + some_of(undone.not_put_back);
    message_box(text, "Interrupted save", Button_set::ok);
}

void offer_interrupted_save(const std::string& file_name) {
    const auto interrupted = platform::interrupted_save(file_name);
    if (!interrupted)
        return;
    const std::string text =
        "The last save of this file was interrupted, and the file may be damaged:\n" +
        screen_text(file_name) + "\nWhat it held before has been kept:\n" + screen_text(interrupted->copy) +
        "\nPut that back? ([No] keeps the file as it is, and deletes what has been kept)";
    switch (message_box(text, "Interrupted save", Button_set::yes_no_cancel)) {
    case Modal_result::yes:
        while (!platform::restore(file_name, *interrupted).ok() &&
               ask_after_failed_save() == Save_outcome::saved) {
        }
        break;
    case Modal_result::no: platform::discard(*interrupted); break;
    default: break;
    }
}
