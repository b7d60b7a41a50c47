#include "app/deletion_question.h"

#include "app/shown_values.h"
#include "editing/bound_control.h"
#include "platform/files.h"
#include "toolkit/screen_language.h"

namespace {

constexpr std::size_t most_names = 10;

std::string told_of(const Deletion_plan& plan) {
    std::string text = worded("Scenarios: %1", std::to_string(plan.scenarios.size())) + '\n' +
                       worded("Files of their outputs: %1", std::to_string(plan.output_files)) + '\n' +
                       worded("Size of all: %1", size_text(plan.bytes)) + '\n';
    for (std::size_t i = 0; i < plan.scenarios.size() && i < most_names; ++i) {
        const Deletion_plan::Scenario& scenario = plan.scenarios[i];
        text += '\n' + screen_text(scenario.file_name);
        if (scenario.output_files > 0)
            text += " (" + worded("outputs: %1", std::to_string(scenario.output_files)) + ')';
    }
    if (plan.scenarios.size() > most_names)
        text += '\n' + worded("and %1 more", std::to_string(plan.scenarios.size() - most_names));
    return text;
}

std::string told_of_active(const std::string& file) {
    if (file.empty())
        return worded(
            "No scenario is checked, and the active scenario is not there: nothing will be deleted.");
    return worded("No scenario is checked: the file of the active scenario goes, and its outputs stay.") +
           "\n" + screen_text(file) + ", " + size_text(platform::file_size(file));
}

} // namespace

Deletion_answer ask_to_delete(const Deletion_plan& checked, const std::string& active_file) {
    const std::string told = "Delete the selected files completely ([No] will move file to recycle bin)";
    const std::string what = checked.scenarios.empty() ? told_of_active(active_file) : told_of(checked);
    switch (
        message_box(told + "\n\n" + what, "Delete files", Button_set::yes_no_cancel, Modal_result::cancel)) {
    case Modal_result::yes: return Deletion_answer::for_good;
    case Modal_result::no: return Deletion_answer::to_trash;
    default: return Deletion_answer::keep;
    }
}

bool may_delete_outside(const std::string& file) {
    return message_box(worded("This file lies outside the folder of this project. Delete it all the same?") +
                           "\n" + screen_text(file),
                       "Scenario outside the project", Button_set::yes_no,
                       Modal_result::no) == Modal_result::yes;
}
