#include "app/scenario_reset_page.h"

#include "app/tilverra_project_form.h"
#include "toolkit/desktop.h"

Scenario_reset_page::Scenario_reset_page(TTilverra_project_form& project_form, TPageControl& pages)
    : Project_page(project_form),
      scenario_reset_tabsheet(pages.add<TTabSheet>("scenario_reset_tabsheet", "Reset")),
      reset_scenario_button(add_controls()) {
    reset_scenario_button.on_click = [this] { reset_scenario_button_onclick(); };
}

TButton& Scenario_reset_page::add_controls() {
    TGroupBox& initial =
        scenario_reset_tabsheet.add<TGroupBox>("reset_initial_groupbox", "Initial:", Layout::grid, 2);
    TGroupBox& files =
        scenario_reset_tabsheet.add<TGroupBox>("reset_files_groupbox", "Parameter files:", Layout::grid, 2);
    for (std::size_t i = 0; i < reset_boxes.size(); ++i) {
        const Reset_box& box = reset_boxes[i];
        TGroupBox& group = box.sections[0] == nullptr ? files : initial;
        reset_checkboxes[i] = &group.add<TCheckBox>(box.control, box.caption);
    }
    return add_button(scenario_reset_tabsheet, "reset_scenario_button", "Copy from active scenario",
                      "Copy selected options and parameters from the active scenario to the selected "
                      "scenarios.");
}

Ticked_reset_boxes Scenario_reset_page::ticked_reset_boxes() const {
    Ticked_reset_boxes ticked;
    for (std::size_t i = 0; i < reset_boxes.size(); ++i)
        ticked[i] = reset_checkboxes[i]->checked();
    return ticked;
}

void Scenario_reset_page::reset_scenario_button_onclick() {
    Scenario_lists& lists = form.scenarios.lists;
    TFileCheckListBox& list = lists.current();
    if (!has_project() || list.count() == 0 || !workspace().need_project_directory())
        return;
    TESK::Smart_file_name source;
    source = std::string(record().active_scenario);
    source.qualify();
    const std::string active_name = source.get_name(true);
    std::vector<std::string> targets;
    std::vector<int> lines;
    for (int i = 0; i < list.count(); ++i) {
        if (!list.checked(i) || record_text(list.line(i).text) == active_name)
            continue;
        targets.push_back(lists.scenario_of_line(i));
        lines.push_back(i);
    }
    std::optional<Change_backups> backups;
    if (!prepare_backups(targets, backups))
        return;
    TProgressBar& bar = form.scenarios.sim_run_progressbar;
    Operation_outcome outcome;
    {
        const Busy_pointer busy;
        Line_progress progress(form.scenarios, static_cast<std::size_t>(list.count()));
        outcome = reset_scenarios(source, targets, ticked_reset_boxes(), pointer_to(backups),
                                  [&](std::size_t done, std::size_t) {
                                      bar.set_position(lines[done]);
                                      return progress.goes_on();
                                  });
        bar.set_position(list.count());
    }
    show_failures(outcome, "Scenarios not reset");
    if (outcome.stopped)
        message_box(
            worded("The reset was stopped. Scenarios reset until then: %1", std::to_string(outcome.done)),
            "Reset stopped", Button_set::ok);
}
