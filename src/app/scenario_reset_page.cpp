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
    const Busy_pointer busy;
    form.scenarios.begin_progress();
    const Ticked_reset_boxes ticked = ticked_reset_boxes();
    for (int i = 0; i < list.count(); ++i) {
        form.scenarios.sim_run_progressbar.step();
        if (list.checked(i) && record_text(list.line(i).text) != active_name)
            reset_scenario(source, TESK::File_name(lists.scenario_of_line(i).c_str()), ticked);
    }
    form.scenarios.sim_run_progressbar.set_visible(false);
}
