#include "app/options_page.h"

Options_page::Options_page(TPageControl& pages)
    : options_tabsheet(pages.add<TTabSheet>("options_tabsheet", "Options")),
      options_pagecontrol(fill(options_tabsheet.add<TPageControl>("options_pagecontrol"))),
      generation_tabsheet(options_pagecontrol.add<TTabSheet>("generation_tabsheet", "Scenario generation")),
      model_tabsheet(options_pagecontrol.add<TTabSheet>("model_tabsheet", "Model selection")),
      data_sources_tabsheet(
          options_pagecontrol.add<TTabSheet>("data_sources_tabsheet", "Additional data sources")),
      template_scenario_filebar(generation_tabsheet.add<TAutoFileEditBar>("template_scenario_filebar")),
      label_template_scenario_notes(
          add_note(generation_tabsheet, "label_template_scenario_notes", usual_template_note)),
      panel_combinatorial_generation(generation_tabsheet.add<TGroupBox>("panel_combinatorial_generation",
                                                                        "Combinations of parameter files")),
      combinatorial_scenario_generation_button(
          add_button(add_row(panel_combinatorial_generation, "panel_generation_buttons"),
                     "combinatorial_scenario_generation_button", "Combinatorial scenario generation",
                     "Make a scenario of each combination of the parameter files, from the template.")),
      combinatorial_scenario_generation_help_button(
          add_button(*combinatorial_scenario_generation_button.parent(),
                     "combinatorial_scenario_generation_help_button", "Help")),
      simulation_model_filebar(model_tabsheet.add<TAutoFileEditBar>("simulation_model_filebar")),
      show_GIS_button(
          add_row(model_tabsheet, "panel_project_type").add<TSpeedButton>("show_GIS_button", "GIS")),
      show_optimization_model_button(show_GIS_button.parent()->add<TSpeedButton>(
          "show_optimization_model_button", "Optimization models")),
      statsgo_groupbox(data_sources_tabsheet.add<TGroupBox>("statsgo_groupbox", "STATSGO", Layout::row)),
      STATSGO_directory_edit([this]() -> TEdit& {
          statsgo_groupbox.add<TLabel>("label_STATSGO_directory", "Soil data directory").set_names_next(true);
          return fill(statsgo_groupbox.add<TEdit>("STATSGO_directory_edit"));
      }()) {
    show_GIS_button.set_hint("Make this a project of runs over the polygons of a map.");
    show_optimization_model_button.set_hint("Show the page of the optimization models.");
}
