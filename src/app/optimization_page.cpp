#include "app/optimization_page.h"

Optimization_page::Optimization_page(TPageControl& pages)
    : tabsheet_optimization(pages.add<TTabSheet>("tabsheet_optimization", "Optimization models")),
      optimization_pagecontrol(fill(tabsheet_optimization.add<TPageControl>("optimization_pagecontrol"))),
      opt_C_seq_tabsheet(optimization_pagecontrol.add<TTabSheet>(
          "opt_C_seq_tabsheet", "Carbon sequestration for grazing regimens")),
      opt_C_seq_pagecontrol(fill(opt_C_seq_tabsheet.add<TPageControl>("opt_C_seq_pagecontrol"))),
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
      optimization_run_button(
          add_button(tabsheet_optimization, "optimization_run_button", "Run optimization")) {
    Place narrow = carbon_seq_scenario_count_output.place();
    narrow.width = 7;
    carbon_seq_scenario_count_output.set_place(narrow);
    optimization_run_button.set_visible(false);
}
