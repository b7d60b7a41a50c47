#include "app/scenarios_page.h"

#include "app/tilverra_project_form.h"
#include "operations/scenario_catalogue.h"
#include "toolkit/screen_memory.h"
#include "toolkit/splitter.h"
#include "trees/suite_directory.h"

namespace {

constexpr int share_of_lists = 560; // of 1000, until the user moves the border

} // namespace

Scenarios_page::Scenarios_page(TTilverra_project_form& project_form)
    : Project_page(project_form), scenarios_tabsheet(form.project_pagecontrol.add<TTabSheet>(
                                      "scenarios_tabsheet", "Simulation scenarios")),
      active_scenario_editbar(scenarios_tabsheet.add<TAutoFileEditBar>("active_scenario_editbar")),
      active_scenario_outside_note(add_note(scenarios_tabsheet, "active_scenario_outside_note",
                                            "This scenario lies outside the folder of this project.")),
      left_(fill(fill(scenarios_tabsheet.add<TSplitter>("scenarios_splitter", Layout::row,
                                                        "Moves the border between the list and the pages."))
                     .add<TPanel>("panel_left"))),
      right_(left_.parent()->add<TPanel>("panel_right")), lists(form, left_),
      edit_run_pagecontrol(fill(right_.add<TPageControl>("edit_run_pagecontrol"))),
      edit(form, edit_run_pagecontrol), run(form, edit_run_pagecontrol, scenarios_tabsheet),
      reset(form, edit_run_pagecontrol), analysis(form, edit_run_pagecontrol),
      sim_run_progress_note(scenarios_tabsheet.add<TLabel>("sim_run_progress_note")),
      sim_run_progressbar(scenarios_tabsheet.add<TProgressBar>("sim_run_progressbar")) {
    keep_position(static_cast<TSplitter&>(*left_.parent()), share_of_lists);
    active_scenario_outside_note.set_visible(false);
    sim_run_progress_note.set_text_is_data(true);
    sim_run_progress_note.set_visible(false);
    sim_run_progressbar.set_visible(false);
    edit_run_pagecontrol.on_change = [this] {
        run.report_format_filebar.set_visible(edit_run_pagecontrol.active_page() ==
                                              &run.scenario_run_tabsheet);
    };
    follower_.on_change = [this] {
        if (has_project())
            files_changed();
    };
    active_scenario_editbar.on_enter = [this] { active_scenario_editbar_set_to_scenarios_dir(); };
    active_scenario_editbar.OnChange = active_scenario_editbar.on_enter;
    active_scenario_editbar.on_exit = [this] {
        active_scenario_editbar_set_to_scenarios_dir();
        if (has_project())
            show_active_scenario();
    };
    active_scenario_editbar.on_after_change = active_scenario_editbar.on_exit;
}

void Scenarios_page::bind() {
    forget_bound_controls();
    edit_run_pagecontrol.set_active_page(edit.scenario_edit_tabsheet);
    lists.bind();
    TVS::Tilverra_Directory* const programs = suite_programs();
    bind_file(active_scenario_editbar, record().active_scenario, "Active scenario",
              programs == nullptr ? nullptr : &programs->get_scenario_editor_exe());
    run.bind();
}

void Scenarios_page::Update() {
    update_bound_controls();
    run.Update();
    lists.Update();
}

void Scenarios_page::active_scenario_editbar_set_to_scenarios_dir() {
    if (has_project())
        complete_active_scenario(workspace(), lists.current_folder());
}

void Scenarios_page::update_active_scenario() {
    workspace().enter_project_folder();
    active_scenario_editbar.Update();
    active_scenario_outside_note.set_visible(workspace().active_scenario_is_outside());
    run.show_hide_run_button();
    follow_files();
}

// The lists' folders and, wherever it lies, the active scenario.
void Scenarios_page::follow_files() {
    TVN_filename active = record().active_scenario;
    if (active.starts_with('<'))
        active = "";
    else if (!active.empty())
        active.qualify();
    follower_.follow({record_text(lists.created_scenarios_filelistbox.folder()),
                      record_text(lists.generated_scenarios_filelistbox.folder())},
                     {active});
}

void Scenarios_page::show_active_scenario() {
    update_active_scenario();
    lists.point_at_active();
}

void Scenarios_page::files_changed() {
    lists.created_scenarios_filelistbox.Update();
    lists.generated_scenarios_filelistbox.Update();
    lists.states_changed();
    list_changed();
}

void Scenarios_page::list_changed() {
    show_hide_scenario_buttons();
    if (has_project())
        show_active_scenario();
}

void Scenarios_page::show_hide_scenario_buttons() {
    const bool has_lines = lists.current().count() > 0;
    for (TButton* button : {&lists.scenerios_select_all_button, &lists.scenerios_select_none_button,
                            &edit.scenario_open_active_button, &edit.scenario_open_other})
        button->set_visible(has_lines);
    lists.no_scenarios_note.set_visible(lists.created_scenarios_filelistbox.count() == 0);
    run.show_hide_run_button();
}
