// The form itself: how it is made and bound, and what is visible when.
#include "app/tilverra_project_form.h"

#include "model/simulation_paths.h"
#include "model/tally_tables.h"
#include "operations/carbon_sequestration_count.h"
#include "operations/scenario_catalogue.h"
#include "platform/files.h"
#include "trees/suite_directory.h"

namespace {

constexpr Colour note_green = 0x00ff00;
constexpr Colour note_red = 0x0000ff;
constexpr const char* usual_template_caption = "Template scenario";
constexpr const char* optimization_help = "project\\optimization\\carbon_sequestration.htm";

// What a note says of the scenario that is to serve as template: by its colour, and by a sign.
void show_verdict(TLabel& note, bool is_good) {
    note.set_colour(is_good ? note_green : note_red);
    note.set_mark(is_good ? Mark::tick : Mark::cross);
}

void show_folder(TFileListBox& list, const std::string& folder) {
    const std::string name = screen_text(folder);
    if (list.folder() != name)
        list.set_folder(name);
}

} // namespace

TTilverra_project_form::TTilverra_project_form()
    : TForm("Tilverra_project_form"), project_pagecontrol(add<TPageControl>("project_pagecontrol")),
      scenarios(project_pagecontrol), options(project_pagecontrol), optimization(project_pagecontrol),
      GIS(project_pagecontrol), tallies(project_pagecontrol), comparisons(project_pagecontrol),
      current_scenarios_listbox(&scenarios.created_scenarios_filelistbox),
      PAT_attributes(std::make_unique<TESK::Text_list>()) {
    fill(project_pagecontrol);
    TVN_filedialog.title = "Simulation scenario";
    TVN_filedialog.filter = "Tilverra scenario file (*.tvn)|*.tvn";
    TVN_filedialog.default_extension = "tvn";
    SIM_dialog.title = "Select version 3 simulation control file to import to this project.";
    SIM_dialog.filter = "Tilverra version 3 simulation control file (*.sim)|*.sim";
    SIM_dialog.multi_select = true;
    SIM_dialog.must_exist = true;
    database_popup.items = {{"Master database", [this] { open_master_database(); }},
                            {"Project database", [this] { open_project_database(); }}};
    wire_scenarios();
    wire_pages();
    wire_lists();
}

TTilverra_project_form::~TTilverra_project_form() = default;

void TTilverra_project_form::wire_scenarios() {
    scenarios.scenario_create_button.on_click = [this] { scenario_create_button_onclick(); };
    scenarios.edit_new_scenario_name.input_filter = scenario_name_characters;
    scenarios.edit_new_scenario_name.on_key = [this](const Key& key) {
        if (key.code != Key_code::enter)
            return false;
        scenario_create_button_onclick();
        return true;
    };
    scenarios.scenario_open_active_button.on_click = [this] { scenario_open_active_button_onclick(); };
    scenarios.scenario_open_other.on_click = [this] { scenario_open_other_onclick(); };
    scenarios.scenario_open_SIM.on_click = [this] { scenario_open_SIM_onclick(); };
    scenarios.scenario_delete_button.on_click = [this] { scenario_delete_button_onclick(); };
    scenarios.explore_scenarios_button.on_click = [this] { explore_scenarios_buttonClick(); };
    scenarios.relist_scenarios_button.on_click = [this] { relist_scenarios_button_onclick(); };
    scenarios.scenerios_select_all_button.on_click = [this] { senerios_select_all_button_onclick(); };
    scenarios.scenerios_select_none_button.on_click = [this] { scenerios_select_none_button_onclick(); };
    scenarios.parameter_database_button.on_click = [this] { parameter_database_onclick(); };
    scenarios.button_launch_TVS_suite.on_click = [this] { button_launch_TVS_suiteClick(); };
    scenarios.senerios_run_button.on_click = [this] { senerios_run_button_onclick(); };
    scenarios.view_output_button.on_click = [this] { view_output_button_onclick(); };
    scenarios.run_statistical_analysis_checkbox.on_click = [this] {
        run_statistical_analysis_checkbox_onclick();
    };
    scenarios.reset_scenario_button.on_click = [this] { reset_scenario_button_onclick(); };
    scenarios.button_compare_project_scenarios.on_click = [this] { button_compare_project_scenariosClick(); };
    scenarios.button_compare_other_scenario.on_click = [this] { button_compare_other_scenarioClick(); };

    TAutoFileEditBar& active = scenarios.active_scenario_editbar;
    active.on_enter = [this] { active_scenario_editbar_set_to_scenarios_dir(); };
    active.OnChange = [this] { active_scenario_editbar_set_to_scenarios_dir(); };
    active.on_exit = [this] {
        active_scenario_editbar_set_to_scenarios_dir();
        scenarios.active_scenario_editbar.Update();
        show_hide_run_button();
    };
    active.on_after_change = active.on_exit;
}

void TTilverra_project_form::wire_pages() {
    project_pagecontrol.on_change = [this] { show_hide_run_buttons(); };
    scenarios.edit_run_pagecontrol.on_change = [this] {
        scenarios.report_format_filebar.set_visible(scenarios.edit_run_pagecontrol.active_index() == 1);
    };
    scenarios.scenario_edit_tabsheet.on_enter = [this] {
        scenarios.report_format_filebar.set_visible(false);
    };
    scenarios.scenario_run_tabsheet.on_enter = [this] { scenarios.report_format_filebar.set_visible(true); };
    scenarios.pagecontrol_scenarios.on_change = [this] {
        set_current_list();
        list_changed();
    };
    comparisons.tabsheet_scenario_comparison.on_show = [this] { tabsheet_scenario_comparisonEnter(); };
    comparisons.comparison_button_view_output.on_click = [this] { comparison_button_view_outputClick(); };
    options.show_GIS_button.on_click = [this] { show_GIS_buttonClick(); };
    options.show_optimization_model_button.on_click = [this] { show_optimization_model_buttonClick(); };
    options.STATSGO_directory_edit.on_change = [this] { STATSGO_directory_edit_onchange(); };
    options.combinatorial_scenario_generation_button.on_click = [this] {
        combinatorial_scenario_generation_buttonClick();
    };
    options.combinatorial_scenario_generation_help_button.on_click = [this] {
        combinatorial_scenario_generation_help_buttonClick();
    };
    optimization.opt_C_seq_view_results.on_click = [this] { opt_C_seq_view_results_buttonClick(); };
    // A run leaves its tables while the project is open.
    GIS.GIS_output_tabsheet.on_show = [this] {
        GIS.GIS_tally_shellistview.Update();
        GIS.GIS_aggregation_shellistview.Update();
    };
    GIS.STATSGO_tabsheet.on_show = [this] { STATSGO_tabsheetShow(); };
    GIS.GIS_coverage_filebar.OnChange = [this] { GIS_coverage_filebar_onchange(); };
    GIS.GIS_coverage_filebar.on_after_change = [this] { GIS_coverage_filebar_onchange(); };
    GIS.GIS_coverage_filebar.on_exit = [this] { GIS_coverage_filebar_onchange(); };
    for (TAutoCheckBox* check :
         {&GIS.GIS_soils_mapped_check, &GIS.GIS_steepness_mapped_check, &GIS.GIS_init_PAW_mapped_check,
          &GIS.GIS_init_NO3_mapped_check, &GIS.uniform_soil_profile_mapped_check, &GIS.GIS_weather_check,
          &GIS.GIS_rotations_mapped_check, &GIS.GIS_recalibration_check, &GIS.GIS_water_table_check})
        check->on_click = [this] { attribute_option_checked(); };
}

// Both lists have the one handler for a change of line. A line of the generated list therefore makes the
// scenario of that name in the folder of created ones the active scenario, whether there is one or not: what
// acts on the active scenario does not reach a generated one. What acts on the checked lines does.
void TTilverra_project_form::wire_lists() {
    for (TFileCheckListBox* list :
         {&scenarios.created_scenarios_filelistbox, &scenarios.generated_scenarios_filelistbox}) {
        list->on_change = [this] { created_scenarios_listbox_onchange(); };
        list->on_check = [this](int) { checks_changed(); };
        list->on_double_click = [this] { scenario_open_active_button_onclick(); };
        list->on_key = [this](const Key& key) {
            if (key.code != Key_code::del)
                return false;
            scenario_delete_button_onclick();
            return true;
        };
    }
    tallies.growing_season.variables.on_click = [this] { GIS_GS_variable_listbox_onclick(); };
    tallies.annual.variables.on_click = [this] { GIS_annl_variable_listbox_onclick(); };
}

// ---- what the operations ask of the form that holds the project

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
    const bool started = parameter_form->run(program.c_str(), options_text.c_str(), file.c_str(),
                                             extra.c_str(), wait, show_state);
    last_save_ = parameter_form->get_last_save();
    return started;
}

bool TTilverra_project_form::was_cancelled() const {
    return last_save_ == Save_outcome::aborted;
}

// ---- binding

void TTilverra_project_form::bind(Tilverra_project_editor_parameters& record,
                                  Tilverra_project_type requested_type, Tparameter_file_form& host_form) {
    project_parameters = &record;
    parameter_form = &host_form;
    workspace_ =
        std::make_unique<Project_workspace>(record, static_cast<Program_host&>(*this), requested_type);
    scenarios.edit_run_pagecontrol.set_active_page(scenarios.scenario_edit_tabsheet);
    current_scenarios_listbox = &scenarios.created_scenarios_filelistbox;
    bind_file_bars();
    bind_optimization();
    fill_tally_lists();
    bind_GIS();
    scenarios.run_statistical_analysis_checkbox.bind_to(&record.statistical_analysis, nullptr);
    bound_controls_.push_back(&scenarios.run_statistical_analysis_checkbox);
}

void TTilverra_project_form::bind_file_bars() {
    const auto edits_with = [this](TAutoFileEditBar& bar, TESK::Filtered_file_name& file, const char* caption,
                                   const TESK::File_name* program) {
        bar.bind_to(&file, caption);
        if (program != nullptr)
            bar.set_edit_program(program, "Edit");
        bound_controls_.push_back(&bar);
    };
    TVS::Tilverra_Directory* programs =
        suite_directory == nullptr ? nullptr : &suite_directory->get_tilverra_directory();
    const TESK::File_name* scenario_editor =
        programs == nullptr ? nullptr : &programs->get_scenario_editor_exe();
    const TESK::File_name* format_editor = programs == nullptr ? nullptr : &programs->get_format_editor_exe();
    Tilverra_project_editor_parameters& record = *project_parameters;
    edits_with(scenarios.active_scenario_editbar, record.active_scenario, "Active scenario", scenario_editor);
    edits_with(options.template_scenario_filebar, record.template_scenario, usual_template_caption,
               scenario_editor);
    if (simulation_paths != nullptr)
        workspace_->master_database = std::make_unique<Database_directory>(*simulation_paths);
    edits_with(options.simulation_model_filebar, record.cropping_system_model, nullptr, nullptr);
    edits_with(scenarios.report_format_filebar, record.report_format, nullptr, format_editor);
    if (programs != nullptr)
        comparisons.comparison_output_generation_filebar.file_editbar.set_edit_program(
            &programs->get_output_manager_advanced_exe(), "Edit");
}

// Binding once more is what brings these controls up to date: the address of their help depends on where the
// documentation lies, which the host form learns after the first time.
void TTilverra_project_form::bind_optimization() {
    Carbon_sequestration_optimization_parameters& c = project_parameters->carbon_sequestration;
    Optimization_page& page = optimization;
    const std::string help = parameter_form->help_lookup(optimization_help);
    const char* const help_URL = help.empty() ? nullptr : help.c_str();
    const auto bind_bar = [&](auto& bar, auto& number) {
        bar.bind_to(&number, help_URL);
        bar.help_button->set_visible(help_URL != nullptr);
        bar.on_exit = [this] { carbon_seq_update_scenarios_count(); };
    };
    bind_bar(page.opt_C_seq_pasture_size_editbar, c.valid_pasture_size);
    bind_bar(page.opt_C_seq_max_plot_count_editbar, c.valid_max_plots);
    bind_bar(page.opt_C_seq_step_plot_count_editbar, c.valid_step_plots);
    bind_bar(page.opt_C_seq_min_herd_size_editbar, c.valid_min_stocking_rate);
    bind_bar(page.opt_C_seq_max_herd_size_editbar, c.valid_max_stocking_rate);
    bind_bar(page.opt_C_seq_step_herdsize_editbar, c.valid_step_stocking_rate);
    bind_bar(page.opt_C_seq_begin_grazing_after_emergence_editbar, c.valid_begin_grazing);
    bind_bar(page.opt_C_seq_duration_editbar, c.valid_max_duration);
    bind_bar(page.opt_C_seq_step_duration_editbar, c.valid_step_duration);
    bind_bar(page.opt_C_seq_grazing_season_duration_editbar, c.valid_grazing_season_duration);
    bind_bar(page.opt_C_seq_max_recovery_days_edit, c.valid_max_recovery_days);
    bind_bar(page.opt_C_seq_dry_matter_req_editbar, c.valid_dry_matter_requirements);
    bind_bar(page.opt_C_seq_reserve_biomass_editbar, c.valid_reserve_biomass);
    bind_bar(page.opt_C_seq_biomatter_return_to_field_editbar, c.valid_biomass_return_to_field);
    page.opt_C_seq_contingency_radiogroup.bind_to(&c.contingency, help_URL);
    page.opt_C_seq_trampling_checkbox.bind_to(&c.trampling, help_URL);
    page.carbon_seq_scenario_count_output.bind_to(&scenario_count, nullptr);
}

void TTilverra_project_form::fill_tally_lists() {
    std::vector<std::string> lines;
    for (std::size_t row = 0; row < growing_season_tally_rows.size(); ++row)
        lines.push_back(get_growing_season_tally_line(row));
    tallies.growing_season.variables.set_lines(lines);
    lines.clear();
    for (std::size_t row = 0; row < annual_tally_rows.size(); ++row)
        lines.push_back(get_annual_tally_line(row));
    tallies.annual.variables.set_lines(lines);
    bound_controls_.insert(bound_controls_.end(),
                           {&tallies.growing_season.statistics, &tallies.growing_season.prob_10,
                            &tallies.growing_season.prob_5, &tallies.annual.statistics,
                            &tallies.annual.prob_10, &tallies.annual.prob_5});
}

void TTilverra_project_form::bind_GIS() {
    GIS_Project_parameters& p = project_parameters->GIS_parameters;
    const auto bind_control = [this](auto& control, auto& value) {
        control.bind_to(&value, nullptr);
        bound_controls_.push_back(&control);
    };
    bind_control(GIS.GIS_coverage_filebar, p.coverage_PAT_filename);
    bind_control(GIS.GIS_soils_mapped_check, p.soils_mapped);
    bind_control(GIS.GIS_steepness_mapped_check, p.steepness_mapped);
    bind_control(GIS.GIS_init_PAW_mapped_check, p.init_PAW_mapped);
    bind_control(GIS.GIS_init_NO3_mapped_check, p.init_NO3_mapped);
    bind_control(GIS.uniform_soil_profile_mapped_check, p.uniform_soil_proile_mapped);
    bind_control(GIS.GIS_weather_check, p.weather_mapped);
    bind_control(GIS.GIS_rotations_mapped_check, p.rotations_mapped);
    bind_control(GIS.GIS_recalibration_check, p.recalibration_mapped);
    bind_control(GIS.GIS_water_table_check, p.water_table_mapped);
    bind_control(GIS.GIS_omit_years_edit, p.valid_equilibriate_years);
    bind_control(GIS.GIS_STATSGO_capability_class_edit, p.valid_max_capability_class);
    bind_control(GIS.GIS_STATSGO_dryland_checkbox, p.dryland);
    bind_control(GIS.GIS_STATSGO_combine_checkbox, p.combine_similar_sequences);
    bind_control(GIS.GIS_STATSGO_max_evap_layer_thickness_edit, p.valid_max_evap_layer_thickness);
    bind_control(GIS.edit_GIS_output_directory, p.output_directory);
    bind_control(GIS.GIS_separate_crop_checkbox, p.separate_crops);
}

// Only the header of the table is read.
void TTilverra_project_form::reload_PAT_attributes() {
    if (!has_project())
        return;
    GIS_Project_parameters& p = project_parameters->GIS_parameters;
    auto attributes = std::make_unique<TESK::Text_list>();
    for (const std::string& name : polygon_attributes(p.coverage_PAT_filename))
        attributes->append(new TESK::Text_list::Item(name.c_str()));
    const std::pair<TAutoContainerComboBox*, TESK::Ustring*> combos[] = {
        {&GIS.GIS_polygon_id_combo, &p.polygon_ID_attribute},
        {&GIS.GIS_soil_combo, &p.soil_attribute},
        {&GIS.GIS_steepness_combo, &p.steepness_attribute},
        {&GIS.GIS_init_PAW_combo, &p.init_PAW_attribute},
        {&GIS.GIS_init_NO3_combo, &p.init_NO3_attribute},
        {&GIS.GIS_soil_sand_combo, &p.uniform_sand_attribute},
        {&GIS.GIS_soil_clay_combo, &p.uniform_clay_attribute},
        {&GIS.GIS_soil_depth_combo, &p.soil_depth_attribute},
        {&GIS.GIS_weather_combo, &p.weather_attribute},
        {&GIS.GIS_rotations_combo, &p.rotation_attribute},
        {&GIS.GIS_recalibration_combo, &p.recalibration_attribute},
        {&GIS.GIS_water_table_combo, &p.water_table_attribute},
    };
    for (const auto& [combo, attribute] : combos)
        combo->bind_to(attribute, attributes.get(), nullptr);
    PAT_attributes = std::move(attributes);
}

// ---- bringing the form up to date

void TTilverra_project_form::show_template_page() {
    const bool is_template = has_project() && workspace_->is_template_project();
    options.template_scenario_filebar.panel_caption.set_text(is_template ? "Template scenario file (required)"
                                                                         : usual_template_caption);
    options.label_template_scenario_notes.set_text(
        is_template ? "A scenario to be used as a template to generate and/or run GIS, watershed, and "
                      "optimization modules; must be selected"
                    : usual_template_note);
    scenarios.scenarios_tabsheet.set_visible(!is_template);
    project_pagecontrol.set_active_page(is_template ? options.options_tabsheet
                                                    : scenarios.scenarios_tabsheet);
    if (is_template)
        options.template_scenario_filebar.focus();
}

void TTilverra_project_form::Update() {
    show_template_page();
    if (!has_project())
        return;
    in_update = true;
    workspace_->ensure_project_directory();
    set_comparison_database();
    workspace_->enter_project_folder();
    update_bound_controls();
    carbon_seq_update_scenarios_count();
    reload_PAT_attributes();
    workspace_->enter_project_folder();
    set_lists_to_project();
    in_update = false;
    show_hide();
    list_changed();
    options.STATSGO_directory_edit.set_text(screen_text(project_parameters->STATSGO_path));
}

// The folders are copied: the bar looks at them longer than a directory object lives.
void TTilverra_project_form::set_comparison_database() {
    if (workspace_->master_database)
        master_output_ = std::string(workspace_->master_database->get_output_directory(false));
    if (workspace_->project_directory)
        project_output_ = std::string(
            workspace_->project_directory->get_database_directory(false).get_output_directory(false));
    comparisons.comparison_output_generation_filebar.bind_to(
        &project_parameters->output_options_file, "Output report generation options", nullptr, nullptr,
        nullptr, nullptr, &project_output_, &master_output_, TESK::Directory_name(""));
}

void TTilverra_project_form::set_lists_to_project() {
    const std::string folder =
        workspace_->project_directory
            ? std::string(workspace_->project_directory->get_scenarios_directory(false))
            : std::string();
    scenarios.created_scenarios_filelistbox.set_folder(screen_text(folder));
    TVN_filedialog.initial_folder = screen_text(folder);
}

void TTilverra_project_form::update_bound_controls() {
    bind_optimization();
    for (TControl* control : bound_controls_)
        control->Update();
}

void TTilverra_project_form::show_hide() {
    if (in_show_hide || in_update || !has_project())
        return;
    in_show_hide = true;
    project_parameters->project_type = workspace_->requested_project_type;
    show_hide_pages();
    options.panel_combinatorial_generation.set_visible(!workspace_->is_template_project());
    GIS.GIS_PAT_fields_pagecontrol.set_visible(workspace_->coverage_exists());
    STATSGO_tabsheetShow();
    show_hide_run_button();
    show_hide_run_buttons();
    // What the button has to do with that program is not known; the rule is kept.
    GIS.GIS_view_holding_capacity_button.set_visible(
        suite_directory != nullptr &&
        suite_directory->get_tilverra_directory().get_scenario_editor_exe().exists());
    show_hide_attributes();
    show_hide_GIS_outputs();
    optimization.tabsheet_optimization.set_visible(project_parameters->project_type ==
                                                   Tilverra_project_type::grazing);
    options.statsgo_groupbox.set_visible(true);
    show_hide_type_buttons();
    show_hide_generated();
    in_show_hide = false;
}

void TTilverra_project_form::show_hide_pages() {
    const bool is_GIS = workspace_->is_GIS();
    const bool is_watershed = workspace_->requested_project_type == Tilverra_project_type::watershed;
    scenarios.scenarios_tabsheet.set_visible(!is_GIS && !workspace_->is_template_project());
    GIS.GIS_tabsheet.set_visible(is_GIS || is_watershed);
    tallies.tabsheet_statistical_tally.set_visible(is_GIS || is_watershed ||
                                                   project_parameters->statistical_analysis);
}

void TTilverra_project_form::show_hide_attributes() {
    const GIS_Project_parameters& p = project_parameters->GIS_parameters;
    const std::pair<TControl*, bool> combos[] = {
        {&GIS.GIS_soil_combo, p.soils_mapped},
        {&GIS.GIS_steepness_combo, p.steepness_mapped},
        {&GIS.GIS_init_PAW_combo, p.init_PAW_mapped},
        {&GIS.GIS_init_NO3_combo, p.init_NO3_mapped},
        {&GIS.GIS_soil_sand_combo, p.uniform_soil_proile_mapped},
        {&GIS.GIS_soil_clay_combo, p.uniform_soil_proile_mapped},
        {&GIS.GIS_soil_depth_combo, p.uniform_soil_proile_mapped},
        {&GIS.GIS_weather_combo, p.weather_mapped},
        {&GIS.GIS_rotations_combo, p.rotations_mapped},
        {&GIS.GIS_recalibration_combo, p.recalibration_mapped},
        {&GIS.GIS_water_table_combo, p.water_table_mapped},
    };
    for (const auto& [combo, is_mapped] : combos)
        combo->set_visible(is_mapped);
    GIS.MUID_found_note.set_visible(PAT_attributes->find("MUID", true) != nullptr);
}

void TTilverra_project_form::show_hide_GIS_outputs() {
    const bool has_directory = workspace_->ensure_project_directory();
    workspace_->enter_project_folder();
    const bool has_outputs =
        has_directory && workspace_->project_directory->get_GIS_directory(false).exists();
    GIS.GIS_output_tabsheet.set_visible(has_outputs);
    GIS.GIS_tally_shellistview.set_visible(has_outputs);
    if (has_outputs)
        show_folder(GIS.GIS_tally_shellistview, workspace_->project_directory->get_GIS_directory(false));
    const bool has_aggregation =
        has_directory && workspace_->project_directory->get_aggregation_directory(false).exists();
    GIS.GIS_aggregation_shellistview.set_visible(has_aggregation);
    if (has_aggregation)
        show_folder(GIS.GIS_aggregation_shellistview,
                    workspace_->project_directory->get_aggregation_directory(false));
    if (has_directory && (workspace_->is_GIS() || project_pagecontrol.active_page() == &GIS.GIS_tabsheet))
        show_folder(GIS.GIS_scenarios_checklistbox, workspace_->project_directory->get_GIS_directory(false));
}

// A project that was started as a tool of one type stays of it.
void TTilverra_project_form::show_hide_type_buttons() {
    options.show_GIS_button.set_down(workspace_->is_GIS());
    options.show_optimization_model_button.set_down(workspace_->requested_project_type ==
                                                    Tilverra_project_type::grazing);
    const bool may_choose = workspace_->requested_project_type == Tilverra_project_type::tilverra;
    options.show_GIS_button.set_visible(may_choose);
    options.show_optimization_model_button.set_visible(may_choose);
}

void TTilverra_project_form::show_hide_generated() {
    const bool exists = workspace_->project_directory &&
                        workspace_->project_directory->get_generated_scenarios_directory(false).exists();
    if (exists)
        show_folder(scenarios.generated_scenarios_filelistbox,
                    workspace_->project_directory->get_generated_scenarios_directory(false));
    scenarios.tabsheet_generated_scenarios.set_visible(exists);
    set_current_list();
}

void TTilverra_project_form::show_hide_run_button() {
    if (!has_project())
        return;
    const bool exists = workspace_->active_scenario_exists();
    scenarios.senerios_run_button.set_visible(exists);
    scenarios.senerios_run_button.set_enabled(exists);
}

void TTilverra_project_form::show_hide_scenario_buttons() {
    const bool has_lines = current_scenarios_listbox->count() > 0;
    for (TButton* button : {&scenarios.scenerios_select_all_button, &scenarios.scenerios_select_none_button,
                            &scenarios.senerios_run_button, &scenarios.scenario_open_active_button,
                            &scenarios.scenario_open_other})
        button->set_visible(has_lines);
}

// The lines of the list in front came or went. An active scenario can be run although there are none.
void TTilverra_project_form::list_changed() {
    show_hide_scenario_buttons();
    if (current_scenarios_listbox->count() == 0)
        show_hide_run_button();
    else if (has_project())
        scenarios.senerios_run_button.set_enabled(workspace_->active_scenario_exists() ||
                                                  current_scenarios_listbox->checked_count() > 0);
}

// Checked lines can be run whatever the active scenario is.
void TTilverra_project_form::checks_changed() {
    if (current_scenarios_listbox->checked_count() == 0)
        return;
    show_hide_scenario_buttons();
    scenarios.senerios_run_button.set_enabled(true);
}

void TTilverra_project_form::show_hide_run_buttons() {
    if (!has_project())
        return;
    workspace_->enter_project_folder();
    const Project_workspace::Run_choice choice =
        workspace_->choose_run(project_pagecontrol.active_page() == &optimization.tabsheet_optimization);
    show_verdict(optimization.opt_template_note, choice.template_ok);
    show_verdict(GIS.GIS_active_scenario_note, choice.template_ok);
    parameter_form->show_run_button(choice.caption, choice.program);
}

void TTilverra_project_form::set_current_list() {
    const bool is_generated =
        scenarios.pagecontrol_scenarios.active_page() == &scenarios.tabsheet_generated_scenarios;
    current_scenarios_listbox =
        is_generated ? &scenarios.generated_scenarios_filelistbox : &scenarios.created_scenarios_filelistbox;
}

// ---- small handlers

void TTilverra_project_form::show_GIS_buttonClick() {
    if (!has_project())
        return;
    workspace_->requested_project_type = Tilverra_project_type::gis;
    show_hide();
}

void TTilverra_project_form::show_optimization_model_buttonClick() {
    if (!has_project())
        return;
    optimization.tabsheet_optimization.set_visible(true);
    options.show_optimization_model_button.set_down(true);
    project_pagecontrol.set_active_page(optimization.tabsheet_optimization);
    show_hide_run_buttons();
}

void TTilverra_project_form::STATSGO_directory_edit_onchange() {
    if (!has_project())
        return;
    project_parameters->STATSGO_path = record_text(options.STATSGO_directory_edit.text());
    STATSGO_tabsheetShow();
}

void TTilverra_project_form::STATSGO_tabsheetShow() {
    if (!has_project())
        return;
    const bool exists = platform::exists(project_parameters->STATSGO_path);
    GIS.GIS_statsgo_panel.set_visible(exists);
    GIS.GIS_STATSGO_directory_note.set_visible(!exists);
}

void TTilverra_project_form::run_statistical_analysis_checkbox_onclick() {
    if (!has_project())
        return;
    if (project_parameters->statistical_analysis)
        message_box(
            "Select the variables to be tallied and the statistics to be calculated on the /Statistical "
            "tallies\\ page.",
            "Select variable", Button_set::ok);
    show_hide();
}

void TTilverra_project_form::carbon_seq_update_scenarios_count() {
    if (!has_project())
        return;
    scenario_count = count_carbon_sequestration_scenarios(project_parameters->carbon_sequestration);
    optimization.carbon_seq_scenario_count_output.Update();
}

void TTilverra_project_form::GIS_coverage_filebar_onchange() {
    reload_PAT_attributes();
    show_hide();
}

void TTilverra_project_form::GIS_GS_variable_listbox_onclick() {
    const int row = tallies.growing_season.variables.item_index();
    if (!has_project() || row < 0)
        return;
    auto& masks = project_parameters->growing_season_tally;
    const auto index = static_cast<std::size_t>(row);
    tallies.growing_season.bind_words(&masks.statistics[index], &masks.prob10[index], &masks.prob5[index]);
}

void TTilverra_project_form::GIS_annl_variable_listbox_onclick() {
    const int row = tallies.annual.variables.item_index();
    if (!has_project() || row < 0)
        return;
    auto& masks = project_parameters->annual_tally;
    const auto index = static_cast<std::size_t>(row);
    tallies.annual.bind_words(&masks.statistics[index], &masks.prob10[index], &masks.prob5[index]);
}
