#include "app/tilverra_project_form.h"

#include "model/simulation_paths.h"
#include "trees/suite_directory.h"

#include <utility>

TTilverra_project_form::TTilverra_project_form()
    : TForm("Tilverra_project_form"), project_pagecontrol(add<TPageControl>("project_pagecontrol")),
      scenarios(*this), runs(*this), settings(*this), options(*this), optimization(*this), GIS(*this),
      map(*this), tallies(*this), comparisons(*this), menu(*this) {
    fill(project_pagecontrol);
    TVN_filedialog.title = "Simulation scenario";
    TVN_filedialog.filter = "Tilverra scenario file (*.tvn)|*.tvn";
    TVN_filedialog.default_extension = "tvn";
    project_pagecontrol.on_change = [this] { show_hide_run_buttons(); };
    runs.on_run_changed = [this] { scenarios.lists.states_changed(); };
}

TTilverra_project_form::~TTilverra_project_form() = default;

// ---- what the operations ask

std::string TTilverra_project_form::project_file() const {
    return parameter_form->get_parameter_file_name();
}

bool TTilverra_project_form::save() {
    last_save_ = parameter_form->save();
    return last_save_ != Save_outcome::aborted;
}

bool TTilverra_project_form::run(const std::string& program, const std::string& options_text,
                                 const std::string& file, const std::string& extra, bool wait,
                                 int show_state) {
    // The save that goes before may change the record that the names were taken from.
    const std::string texts[] = {program, options_text, file, extra};
    const bool started = parameter_form->run(texts[0].c_str(), texts[1].c_str(), texts[2].c_str(),
                                             texts[3].c_str(), wait, show_state);
    last_save_ = parameter_form->get_last_save();
    return started;
}

bool TTilverra_project_form::was_cancelled() const {
    return last_save_ == Save_outcome::aborted;
}

void TTilverra_project_form::explore(const std::string& folder) {
    run_with_file(suite_directory->get_explorer_exe(), folder, "");
}

// ---- binding

void TTilverra_project_form::bind(Tilverra_project_editor_parameters& record,
                                  Tilverra_project_type requested_type, Tparameter_file_form& host_form) {
    parameter_form = &host_form;
    shown_as_template_.reset();
    parameter_form->on_leave = [this] { return settings.may_close() && runs.may_close(); };
    workspace_ = std::make_unique<Project_workspace>(record, *this, requested_type);
    if (simulation_paths != nullptr)
        workspace_->master_database = std::make_unique<Database_directory>(*simulation_paths);
    scenarios.bind();
    options.bind();
    optimization.bind();
    GIS.bind();
    tallies.bind();
    comparisons.bind();
    menu.bind();
}

// ---- bringing the form up to date

// The page in front stays, unless another kind of project has been loaded or has come of a save.
void TTilverra_project_form::show_template() {
    const bool is_template = workspace_ && workspace_->is_template_project();
    options.show_template(is_template);
    scenarios.scenarios_tabsheet.set_visible(!is_template);
    runs.runs_tabsheet.set_visible(!is_template);
    settings.settings_tabsheet.set_visible(!is_template);
    if (std::exchange(shown_as_template_, is_template) == is_template)
        return;
    project_pagecontrol.set_active_page(is_template ? options.options_tabsheet
                                                    : scenarios.scenarios_tabsheet);
    if (is_template)
        options.template_scenario_filebar.focus();
}

void TTilverra_project_form::Update() {
    show_template();
    if (!workspace_)
        return;
    in_update = true;
    workspace_->ensure_project_directory();
    workspace_->enter_project_folder();
    runs.Update(); // it tells the states that the lists of scenarios show
    scenarios.Update();
    settings.Update();
    options.Update();
    optimization.Update();
    tallies.Update();
    comparisons.Update();
    GIS.Update();
    workspace_->enter_project_folder();
    in_update = false;
    show_hide();
    scenarios.list_changed();
}

void TTilverra_project_form::show_hide() {
    if (in_show_hide || in_update || !workspace_)
        return;
    in_show_hide = true;
    workspace_->project_parameters.project_type = workspace_->requested_project_type;
    show_hide_pages();
    GIS.show_hide();
    map.show_hide();
    scenarios.run.show_hide_run_button();
    show_hide_run_buttons();
    // Who has opened the page of the optimization models in another project is not thrown off it.
    optimization.tabsheet_optimization.set_visible(
        workspace_->requested_project_type == Tilverra_project_type::grazing ||
        project_pagecontrol.active_page() == &optimization.tabsheet_optimization);
    options.show_hide();
    scenarios.lists.show_hide_generated();
    in_show_hide = false;
}

void TTilverra_project_form::show_hide_pages() {
    const bool is_GIS = workspace_->is_GIS();
    const bool is_watershed = workspace_->requested_project_type == Tilverra_project_type::watershed;
    scenarios.scenarios_tabsheet.set_visible(!is_GIS && !workspace_->is_template_project());
    GIS.GIS_tabsheet.set_visible(is_GIS || is_watershed);
    tallies.tabsheet_statistical_tally.set_visible(is_GIS || is_watershed ||
                                                   workspace_->project_parameters.statistical_analysis);
}

void TTilverra_project_form::show_hide_run_buttons() {
    if (!workspace_)
        return;
    workspace_->enter_project_folder();
    const Project_workspace::Run_choice choice =
        workspace_->choose_run(project_pagecontrol.active_page() == &optimization.tabsheet_optimization);
    optimization.show_template_ok(choice.template_ok);
    GIS.show_template_ok(choice.template_ok);
    parameter_form->show_run_button(choice.caption, choice.program);
}
