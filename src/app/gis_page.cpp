#include "app/gis_page.h"

namespace {

// A check box, and beside it the attribute that it makes count.
TAutoCheckBox& add_check(TTabSheet& page, const char* name, const char* caption) {
    return page.add<TAutoCheckBox>(name, caption);
}

TAutoContainerComboBox& add_combo(TTabSheet& page, const char* name) {
    return page.add<TAutoContainerComboBox>(name);
}

TAutoContainerComboBox& add_named_combo(TTabSheet& page, const char* name, const char* caption) {
    page.add<TLabel>(std::string("label_") + name, caption).set_names_next(true);
    return page.add<TAutoContainerComboBox>(name);
}

TShellListView& add_table_list(TTabSheet& page, const char* name, const char* caption) {
    page.add<TLabel>(std::string("label_") + name, caption);
    auto& list = fill(page.add<TShellListView>(name));
    list.set_mask("*.dbf");
    return list;
}

} // namespace

GIS_page::GIS_page(TPageControl& pages)
    : GIS_tabsheet(pages.add<TTabSheet>("GIS_tabsheet", "GIS")),
      GIS_pagecontrol(fill(GIS_tabsheet.add<TPageControl>("GIS_pagecontrol"))),
      GIS_maps_tabsheet(GIS_pagecontrol.add<TTabSheet>("GIS_maps_tabsheet", "Maps")),
      STATSGO_tabsheet(GIS_pagecontrol.add<TTabSheet>("STATSGO_tabsheet", "STATSGO (optional)")),
      GIS_tallies_tabsheet(
          GIS_pagecontrol.add<TTabSheet>("GIS_tallies_tabsheet", "Select statistical tallies")),
      GIS_run_tabsheet(GIS_pagecontrol.add<TTabSheet>("GIS_run_tabsheet", "Run options")),
      GIS_analysis_tabsheet(GIS_pagecontrol.add<TTabSheet>("GIS_analysis_tabsheet", "Analysis")),
      GIS_output_tabsheet(GIS_pagecontrol.add<TTabSheet>("GIS_output_tabsheet", "Output tables")),
      GIS_coverage_filebar(GIS_maps_tabsheet.add<TAutoFileEditBar>("GIS_coverage_filebar")),
      GIS_PAT_fields_pagecontrol(fill(GIS_maps_tabsheet.add<TPageControl>("GIS_PAT_fields_pagecontrol"))),
      GIS_soil_tabsheet(
          GIS_PAT_fields_pagecontrol.add<TTabSheet>("GIS_soil_tabsheet", "Soil attributes", Layout::grid, 2)),
      GIS_uniform_soil_tabsheet(GIS_PAT_fields_pagecontrol.add<TTabSheet>(
          "GIS_uniform_soil_tabsheet", "Uniform soil attributes (optional)", Layout::grid, 2)),
      GIS_other_tabsheet(GIS_PAT_fields_pagecontrol.add<TTabSheet>("GIS_other_tabsheet", "Other attributes",
                                                                   Layout::grid, 2)),
      GIS_polygon_id_combo(add_named_combo(GIS_soil_tabsheet, "GIS_polygon_id_combo", "Polygon identifier")),
      GIS_soils_mapped_check(add_check(GIS_soil_tabsheet, "GIS_soils_mapped_check", "Soils mapped")),
      GIS_soil_combo(add_combo(GIS_soil_tabsheet, "GIS_soil_combo")),
      MUID_found_note(add_note(GIS_soil_tabsheet, "MUID_found_note",
                               "The attribute MUID of STATSGO soil data has been found.")),
      GIS_steepness_mapped_check(
          add_check(GIS_soil_tabsheet, "GIS_steepness_mapped_check", "Soil slope steepness mapped")),
      GIS_steepness_combo(add_combo(GIS_soil_tabsheet, "GIS_steepness_combo")),
      GIS_init_PAW_mapped_check(
          add_check(GIS_soil_tabsheet, "GIS_init_PAW_mapped_check", "Initial plant available water mapped")),
      GIS_init_PAW_combo(add_combo(GIS_soil_tabsheet, "GIS_init_PAW_combo")),
      GIS_init_NO3_mapped_check(
          add_check(GIS_soil_tabsheet, "GIS_init_NO3_mapped_check", "Initial nitrate mapped")),
      GIS_init_NO3_combo(add_combo(GIS_soil_tabsheet, "GIS_init_NO3_combo")),
      uniform_soil_profile_mapped_check(add_check(
          GIS_uniform_soil_tabsheet, "uniform_soil_profile_mapped_check", "Uniform soil profile mapped")),
      GIS_soil_sand_combo((GIS_uniform_soil_tabsheet.add<TLabel>("label_uniform"),
                           add_named_combo(GIS_uniform_soil_tabsheet, "GIS_soil_sand_combo", "Sand"))),
      GIS_soil_clay_combo(add_named_combo(GIS_uniform_soil_tabsheet, "GIS_soil_clay_combo", "Clay")),
      GIS_soil_depth_combo(add_named_combo(GIS_uniform_soil_tabsheet, "GIS_soil_depth_combo", "Soil depth")),
      GIS_weather_check(add_check(GIS_other_tabsheet, "GIS_weather_check", "Weather mapped")),
      GIS_weather_combo(add_combo(GIS_other_tabsheet, "GIS_weather_combo")),
      GIS_rotations_mapped_check(
          add_check(GIS_other_tabsheet, "GIS_rotations_mapped_check", "Rotations mapped")),
      GIS_rotations_combo(add_combo(GIS_other_tabsheet, "GIS_rotations_combo")),
      GIS_recalibration_check(
          add_check(GIS_other_tabsheet, "GIS_recalibration_check", "Recalibration mapped")),
      GIS_recalibration_combo(add_combo(GIS_other_tabsheet, "GIS_recalibration_combo")),
      GIS_water_table_check(add_check(GIS_other_tabsheet, "GIS_water_table_check", "Water table mapped")),
      GIS_water_table_combo(add_combo(GIS_other_tabsheet, "GIS_water_table_combo")),
      GIS_STATSGO_directory_note(
          add_note(STATSGO_tabsheet, "GIS_STATSGO_directory_note",
                   "The directory of the STATSGO soil data does not exist. Specify it on the page /Options\\ "
                   "[Additional data sources].")),
      GIS_statsgo_panel(STATSGO_tabsheet.add<TPanel>("GIS_statsgo_panel")),
      GIS_STATSGO_capability_class_edit(
          GIS_statsgo_panel.add<TAutoInt16EditBar>("GIS_STATSGO_capability_class_edit")),
      GIS_STATSGO_max_evap_layer_thickness_edit(
          GIS_statsgo_panel.add<TAutoFloat32EditBar>("GIS_STATSGO_max_evap_layer_thickness_edit")),
      GIS_STATSGO_dryland_checkbox(
          GIS_statsgo_panel.add<TAutoCheckBox>("GIS_STATSGO_dryland_checkbox", "Dryland")),
      GIS_STATSGO_combine_checkbox(
          GIS_statsgo_panel.add<TAutoCheckBox>("GIS_STATSGO_combine_checkbox", "Combine similar sequences")),
      GIS_separate_crop_checkbox((add_note(GIS_tallies_tabsheet, "label_GIS_tallies",
                                           "Select the variables to be tallied and the statistics to be "
                                           "calculated on the /Statistical tallies\\ page."),
                                  GIS_tallies_tabsheet.add<TAutoCheckBox>("GIS_separate_crop_checkbox",
                                                                          "Separate tables for each crop"))),
      GIS_active_scenario_note(
          add_note(GIS_run_tabsheet, "GIS_active_scenario_note",
                   "To run the polygons of the map, you must select an Active simulation scenario to be used "
                   "as the template scenario")),
      edit_GIS_output_directory([this]() -> TAutoStringEdit& {
          TPanel& row = add_row(GIS_run_tabsheet, "panel_GIS_output_directory");
          row.add<TLabel>("label_GIS_output_directory", "Output directory").set_names_next(true);
          return fill(row.add<TAutoStringEdit>("edit_GIS_output_directory"));
      }()),
      GIS_omit_years_edit(GIS_run_tabsheet.add<TAutoInt16EditBar>("GIS_omit_years_edit")),
      GIS_scenarios_checklistbox(
          (GIS_run_tabsheet.add<TLabel>("label_GIS_scenarios", "Scenarios"),
           fill(GIS_run_tabsheet.add<TFileCheckListBox>("GIS_scenarios_checklistbox")))),
      GIS_view_holding_capacity_button(add_button(GIS_analysis_tabsheet, "GIS_view_holding_capacity_button",
                                                  "View water holding capacity")),
      GIS_perform_prob_distribution(add_button(GIS_analysis_tabsheet, "GIS_perform_prob_distribution",
                                               "Perform probability distribution")),
      GIS_tally_shellistview(
          add_table_list(GIS_output_tabsheet, "GIS_tally_shellistview", "Tables of the runs")),
      GIS_aggregation_shellistview(
          add_table_list(GIS_output_tabsheet, "GIS_aggregation_shellistview", "Aggregated tables")) {
    Place wide = MUID_found_note.place();
    wide.span = 2;
    MUID_found_note.set_place(wide);
    GIS_scenarios_checklistbox.set_mask("*.tvn");
    GIS_omit_years_edit.set_Description_label("Equilibration years to omit");
    // Neither does anything in the suite as it stands.
    for (TButton* button : {&GIS_view_holding_capacity_button, &GIS_perform_prob_distribution}) {
        button->set_enabled(false);
        button->set_hint("Not available in this program.");
    }
}
