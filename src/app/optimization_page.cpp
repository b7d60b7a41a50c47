#include "app/optimization_page.h"

#include "app/tilverra_project_form.h"
#include "operations/carbon_sequestration_count.h"
#include "trees/suite_directory.h"

namespace {

constexpr const char* optimization_help = "project\\optimization\\carbon_sequestration.htm";

} // namespace

Optimization_page::Optimization_page(TTilverra_project_form& project_form)
    : Project_page(project_form), tabsheet_optimization(form.project_pagecontrol.add<TTabSheet>(
                                      "tabsheet_optimization", "Optimization models")),
      optimization_pagecontrol(
          tabsheet_optimization.add<TPageControl>("optimization_pagecontrol", Tabs::none)),
      opt_C_seq_tabsheet(optimization_pagecontrol.add<TTabSheet>(
          "opt_C_seq_tabsheet", "Carbon sequestration for grazing regimens")),
      opt_C_seq_pagecontrol(opt_C_seq_tabsheet.add<TPageControl>("opt_C_seq_pagecontrol", Tabs::none)),
      acreage_tabsheet(opt_C_seq_pagecontrol.add<TTabSheet>("acreage_tabsheet", "Acreage")),
      herd_tabsheet(opt_C_seq_pagecontrol.add<TTabSheet>("herd_tabsheet", "Herd population / Stocking rate")),
      grazing_tabsheet(opt_C_seq_pagecontrol.add<TTabSheet>("grazing_tabsheet", "Grazing regimen")),
      management_tabsheet(opt_C_seq_pagecontrol.add<TTabSheet>("management_tabsheet", "Management options")),
      opt_C_seq_pasture_size_editbar(
          acreage_tabsheet.add<TAutoFloat32EditBar>("opt_C_seq_pasture_size_editbar")),
      opt_C_seq_max_plot_count_editbar(
          acreage_tabsheet.add<TAutoInt16EditBar>("opt_C_seq_max_plot_count_editbar")),
      opt_C_seq_step_plot_count_editbar(
          acreage_tabsheet.add<TAutoInt16EditBar>("opt_C_seq_step_plot_count_editbar")),
      opt_C_seq_min_herd_size_editbar(
          herd_tabsheet.add<TAutoInt16EditBar>("opt_C_seq_min_herd_size_editbar")),
      opt_C_seq_max_herd_size_editbar(
          herd_tabsheet.add<TAutoInt16EditBar>("opt_C_seq_max_herd_size_editbar")),
      opt_C_seq_step_herdsize_editbar(
          herd_tabsheet.add<TAutoInt16EditBar>("opt_C_seq_step_herdsize_editbar")),
      opt_C_seq_begin_grazing_after_emergence_editbar(
          grazing_tabsheet.add<TAutoInt16EditBar>("opt_C_seq_begin_grazing_after_emergence_editbar")),
      opt_C_seq_duration_editbar(grazing_tabsheet.add<TAutoInt16EditBar>("opt_C_seq_duration_editbar")),
      opt_C_seq_step_duration_editbar(
          grazing_tabsheet.add<TAutoInt16EditBar>("opt_C_seq_step_duration_editbar")),
      opt_C_seq_grazing_season_duration_editbar(
          grazing_tabsheet.add<TAutoInt16EditBar>("opt_C_seq_grazing_season_duration_editbar")),
      opt_C_seq_max_recovery_days_edit(
          grazing_tabsheet.add<TAutoInt16EditBar>("opt_C_seq_max_recovery_days_edit")),
      opt_C_seq_dry_matter_req_editbar(
          management_tabsheet.add<TAutoFloat32EditBar>("opt_C_seq_dry_matter_req_editbar")),
      opt_C_seq_reserve_biomass_editbar(
          management_tabsheet.add<TAutoFloat32EditBar>("opt_C_seq_reserve_biomass_editbar")),
      opt_C_seq_biomatter_return_to_field_editbar(
          management_tabsheet.add<TAutoInt16EditBar>("opt_C_seq_biomatter_return_to_field_editbar")),
      opt_C_seq_contingency_radiogroup(management_tabsheet.add<TAutoRadioGroup>(
          "opt_C_seq_contingency_radiogroup", "If the reserve biomass is not met",
          std::vector<std::string>{"None", "Postpone", "Not viable", "Abort"}, 4)),
      opt_C_seq_trampling_checkbox(
          management_tabsheet.add<TAutoCheckBox>("opt_C_seq_trampling_checkbox", "Trampling")),
      opt_template_note(add_note(
          tabsheet_optimization, "opt_template_note",
          "To use optimization models, you must select an Active simulation scenario to be used as the "
          "template scenario")),
      carbon_seq_scenario_count_output([this]() -> TAutoInt16Edit& {
          TPanel& row = add_row(tabsheet_optimization, "panel_scenario_count");
          row.add<TLabel>("label_scenario_count", "Number of scenarios that will be generated and run")
              .set_names_next(true);
          auto& output = row.add<TAutoInt16Edit>("carbon_seq_scenario_count_output");
          output.set_read_only(true);
          return output;
      }()),
      opt_C_seq_view_results(add_button(*carbon_seq_scenario_count_output.parent(), "opt_C_seq_view_results",
                                        "View results", "Show what the last run of the optimization found.")),
      explore_optimization_button(add_button(
          *carbon_seq_scenario_count_output.parent(), "explore_optimization_button",
          "Explore optimization folder", "Show the folder of the page in front in the suite's explorer.")),
      optimization_run_button(
          add_button(tabsheet_optimization, "optimization_run_button", "Run optimization")) {
    Place narrow = carbon_seq_scenario_count_output.place();
    narrow.width = 7;
    carbon_seq_scenario_count_output.set_place(narrow);
    optimization_run_button.set_visible(false);
    explore_optimization_button.on_click = [this] { form.scenarios.lists.explore_scenarios_buttonClick(); };
    opt_C_seq_view_results.on_click = [this] { opt_C_seq_view_results_buttonClick(); };
}

void Optimization_page::bind() {
    Carbon_sequestration_optimization_parameters& c = record().carbon_sequestration;
    const std::string help = form.parameter_file_form().help_lookup(optimization_help);
    const char* const help_URL = help.empty() ? nullptr : help.c_str();
    const auto bind_bar = [&](auto& bar, auto& number) {
        bar.bind_to(&number, help_URL);
        bar.help_button->set_visible(help_URL != nullptr);
        bar.on_exit = [this] { carbon_seq_update_scenarios_count(); };
    };
    bind_bar(opt_C_seq_pasture_size_editbar, c.valid_pasture_size);
    bind_bar(opt_C_seq_max_plot_count_editbar, c.valid_max_plots);
    bind_bar(opt_C_seq_step_plot_count_editbar, c.valid_step_plots);
    bind_bar(opt_C_seq_min_herd_size_editbar, c.valid_min_stocking_rate);
    bind_bar(opt_C_seq_max_herd_size_editbar, c.valid_max_stocking_rate);
    bind_bar(opt_C_seq_step_herdsize_editbar, c.valid_step_stocking_rate);
    bind_bar(opt_C_seq_begin_grazing_after_emergence_editbar, c.valid_begin_grazing);
    bind_bar(opt_C_seq_duration_editbar, c.valid_max_duration);
    bind_bar(opt_C_seq_step_duration_editbar, c.valid_step_duration);
    bind_bar(opt_C_seq_grazing_season_duration_editbar, c.valid_grazing_season_duration);
    bind_bar(opt_C_seq_max_recovery_days_edit, c.valid_max_recovery_days);
    bind_bar(opt_C_seq_dry_matter_req_editbar, c.valid_dry_matter_requirements);
    bind_bar(opt_C_seq_reserve_biomass_editbar, c.valid_reserve_biomass);
    bind_bar(opt_C_seq_biomatter_return_to_field_editbar, c.valid_biomass_return_to_field);
    opt_C_seq_contingency_radiogroup.bind_to(&c.contingency, help_URL);
    opt_C_seq_trampling_checkbox.bind_to(&c.trampling, help_URL);
    carbon_seq_scenario_count_output.bind_to(&scenario_count, nullptr);
}

void Optimization_page::Update() {
    bind();
    carbon_seq_update_scenarios_count();
}

void Optimization_page::show_template_ok(bool is_ok) {
    show_verdict(opt_template_note, is_ok);
}

void Optimization_page::carbon_seq_update_scenarios_count() {
    if (!has_project())
        return;
    scenario_count = count_carbon_sequestration_scenarios(record().carbon_sequestration);
    carbon_seq_scenario_count_output.Update();
}

void Optimization_page::opt_C_seq_view_results_buttonClick() {
    if (has_project() && workspace().need_project_directory())
        form.run_with_file(suite_directory->get_tilverra_directory().get_carbon_sequestration_viewer_exe(),
                           form.project_file(), "");
}
