#include "app/scenario_analysis_page.h"

#include "app/tilverra_project_form.h"
#include "operations/scenario_comparison.h"
#include "toolkit/screen_language.h"

namespace {

constexpr const char* no_outputs_title = "Active scenario has no outputs to compare";

} // namespace

Scenario_analysis_page::Scenario_analysis_page(TTilverra_project_form& project_form, TPageControl& pages)
    : Project_page(project_form),
      scenario_analysis_tabsheet(pages.add<TTabSheet>("scenario_analysis_tabsheet", "Analysis")),
      button_compare_project_scenarios(
          add_button(scenario_analysis_tabsheet, "button_compare_project_scenarios",
                     "Compare project scenarios", "Compare each checked scenario with the active scenario.")),
      button_compare_other_scenario(add_button(scenario_analysis_tabsheet, "button_compare_other_scenario",
                                               "Compare to another scenario",
                                               "Select a scenario of any project to compare with the active "
                                               "scenario.")) {
    button_compare_project_scenarios.on_click = [this] { button_compare_project_scenariosClick(); };
    button_compare_other_scenario.on_click = [this] { button_compare_other_scenarioClick(); };
}

// Whether the active scenario can be compared, once the user was asked to run it.
bool Scenario_analysis_page::ask_for_output_of_active() {
    if (active_scenario_has_output(workspace()))
        return true;
    if (message_box("The active scenario does not appear to have been run. Run the active scenario now?",
                    no_outputs_title, Button_set::yes_no_cancel) == Modal_result::yes)
        form.scenarios.run.run_active();
    if (active_scenario_has_output(workspace()))
        return true;
    message_box(
        "It is not possible to perform the comparison because there is no output folder for the active "
        "scenario.",
        no_outputs_title, Button_set::ok);
    return false;
}

// True when a comparison ran; the flag comes back false when none can run.
bool Scenario_analysis_page::compare_with(const std::string& other, bool& active_has_output) {
    active_has_output = ask_for_output_of_active();
    if (!active_has_output)
        return false;
    const Comparison_outcome outcome = compare_scenarios(workspace(), other);
    return outcome == Comparison_outcome::compared || outcome == Comparison_outcome::not_started;
}

bool Scenario_analysis_page::active_scenario_is_there() {
    if (!workspace().need_project_directory())
        return false;
    if (workspace().active_scenario_exists())
        return true;
    message_box("The active scenario has not been selected or does not exist", "Active scenario not found",
                Button_set::ok);
    return false;
}

// Compares the checked lines, whose marks go. Gives how many there was something to compare of; `is_stopped`
// when the user gave it up.
int Scenario_analysis_page::compare_checked(bool& is_stopped) {
    Scenario_lists& lists = form.scenarios.lists;
    TFileCheckListBox& list = lists.current();
    Line_progress progress(form.scenarios, static_cast<std::size_t>(list.count()));
    const auto total = static_cast<std::size_t>(list.checked_count());
    std::size_t number = 0;
    bool active_has_output = true;
    int compared = 0;
    for (int i = 0; !is_stopped && i < list.count(); ++i) {
        if (list.checked(i) && active_has_output) {
            list.set_item_index(i);
            progress.show(++number, total, record_text(list.line(i).text));
            compared += compare_with(lists.scenario_of_line(i), active_has_output) ? 1 : 0;
            if (form.was_cancelled())
                break;
            list.set_checked(i, false);
        }
        progress.step();
        is_stopped = !progress.goes_on();
    }
    is_stopped = is_stopped || form.was_cancelled();
    return compared;
}

void Scenario_analysis_page::button_compare_project_scenariosClick() {
    if (!has_project() || !active_scenario_is_there())
        return;
    form.forget_cancellation();
    bool is_stopped = false;
    const int compared = compare_checked(is_stopped);
    form.scenarios.show_active_scenario();
    if (compared > 0)
        form.comparisons.list_again();
    if (compared == 0 && !is_stopped)
        message_box("To compare scenarios, you must select scenarios to compare (click check boxes)",
                    "No scenarios selected to compare", Button_set::ok_cancel);
    else if (compared > 0)
        form.project_pagecontrol.set_active_page(form.comparisons.tabsheet_scenario_comparison);
}

void Scenario_analysis_page::button_compare_other_scenarioClick() {
    if (!has_project() || !active_scenario_is_there() || !form.TVN_filedialog.execute())
        return;
    bool active_has_output = true;
    if (compare_with(record_text(form.TVN_filedialog.file_name), active_has_output))
        form.comparisons.list_again();
    form.project_pagecontrol.set_active_page(form.comparisons.tabsheet_scenario_comparison);
}

void Scenario_analysis_page::compare_line() {
    Scenario_lists& lists = form.scenarios.lists;
    if (!has_project() || lists.current().item_index() < 0 || !workspace().need_project_directory())
        return;
    const std::string file = lists.scenario_of_line(lists.current().item_index());
    const std::vector<int> others = lists.current_table().lines_beside_cursor();
    form.forget_cancellation();
    Line_progress progress(form.scenarios, others.size());
    std::size_t number = 0;
    std::size_t compared = 0;
    for (const int other : others) {
        progress.show(++number, others.size(), record_text(lists.current().line(other).text));
        const Comparison_outcome outcome =
            compare_scenarios(workspace(), file, lists.scenario_of_line(other));
        if (outcome == Comparison_outcome::no_output) {
            form.parameter_file_form().notice(
                worded("This scenario does not have any output.  First run the simulation"),
                Mark::exclamation);
            return;
        }
        compared += outcome == Comparison_outcome::skipped ? 0 : 1;
        progress.step();
        if (form.was_cancelled() || !progress.goes_on())
            break;
    }
    if (compared > 0) {
        form.comparisons.list_again();
        form.project_pagecontrol.set_active_page(form.comparisons.tabsheet_scenario_comparison);
    }
    std::string told = worded("Scenarios compared: %1", std::to_string(compared));
    if (number > compared)
        told += "; " + worded("without output: %1", std::to_string(number - compared));
    form.parameter_file_form().notice(told, number > compared ? Mark::exclamation : Mark::none);
}
