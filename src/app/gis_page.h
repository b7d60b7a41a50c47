// The page of runs over the polygons of a map: the map's attributes, soil data, what is tallied, and the
// output.
#pragma once

#include "app/project_page.h"
#include "editing/auto_choices.h"
#include "editing/auto_lists.h"
#include "editing/number_edit_bars.h"
#include "foundation/text_list.h"
#include "toolkit/file_list_box.h"

#include <memory>

class GIS_page : public Project_page {
public:
    explicit GIS_page(TTilverra_project_form& project_form);

    void bind();
    void Update();
    void show_hide();
    // Whether the scenario that is to serve as template exists.
    void show_template_ok(bool is_ok);

    void GIS_coverage_filebar_onchange();
    void attribute_option_checked();
    void STATSGO_tabsheetShow();

    // The names of the attributes of the polygon attribute table.
    const TESK::Text_list& get_PAT_attributes() const { return *PAT_attributes; }

    TTabSheet& GIS_tabsheet;
    TPageControl& GIS_pagecontrol;
    TTabSheet& GIS_maps_tabsheet;
    TTabSheet& STATSGO_tabsheet;
    TTabSheet& GIS_tallies_tabsheet;
    TTabSheet& GIS_run_tabsheet;
    TTabSheet& GIS_analysis_tabsheet;
    TTabSheet& GIS_output_tabsheet;

    // Maps
    TAutoFileEditBar& GIS_coverage_filebar;
    TButton& GIS_coverage_table_button;
    TPageControl& GIS_PAT_fields_pagecontrol;
    TTabSheet& GIS_soil_tabsheet;
    TTabSheet& GIS_uniform_soil_tabsheet;
    TTabSheet& GIS_other_tabsheet;
    TAutoContainerComboBox& GIS_polygon_id_combo;
    TAutoCheckBox& GIS_soils_mapped_check;
    TAutoContainerComboBox& GIS_soil_combo;
    TLabel& MUID_found_note;
    TAutoCheckBox& GIS_steepness_mapped_check;
    TAutoContainerComboBox& GIS_steepness_combo;
    TAutoCheckBox& GIS_init_PAW_mapped_check;
    TAutoContainerComboBox& GIS_init_PAW_combo;
    TAutoCheckBox& GIS_init_NO3_mapped_check;
    TAutoContainerComboBox& GIS_init_NO3_combo;
    TAutoCheckBox& uniform_soil_profile_mapped_check;
    TAutoContainerComboBox& GIS_soil_sand_combo;
    TAutoContainerComboBox& GIS_soil_clay_combo;
    TAutoContainerComboBox& GIS_soil_depth_combo;
    TAutoCheckBox& GIS_weather_check;
    TAutoContainerComboBox& GIS_weather_combo;
    TAutoCheckBox& GIS_rotations_mapped_check;
    TAutoContainerComboBox& GIS_rotations_combo;
    TAutoCheckBox& GIS_recalibration_check;
    TAutoContainerComboBox& GIS_recalibration_combo;
    TAutoCheckBox& GIS_water_table_check;
    TAutoContainerComboBox& GIS_water_table_combo;

    // STATSGO
    TLabel& GIS_STATSGO_directory_note;
    TPanel& GIS_statsgo_panel;
    TAutoInt16EditBar& GIS_STATSGO_capability_class_edit;
    TAutoFloat32EditBar& GIS_STATSGO_max_evap_layer_thickness_edit;
    TAutoCheckBox& GIS_STATSGO_dryland_checkbox;
    TAutoCheckBox& GIS_STATSGO_combine_checkbox;

    // Tallies and runs
    TAutoCheckBox& GIS_separate_crop_checkbox;
    TLabel& GIS_active_scenario_note;
    TAutoStringEdit& edit_GIS_output_directory;
    TAutoInt16EditBar& GIS_omit_years_edit;
    TFileCheckListBox& GIS_scenarios_checklistbox;
    TLabel& GIS_scenarios_note;

    // Analysis and output
    TButton& GIS_view_holding_capacity_button;
    TButton& GIS_perform_prob_distribution;
    TLabel& GIS_analysis_note; // why neither can be pressed
    TShellListView& GIS_tally_shellistview;
    TShellListView& GIS_aggregation_shellistview;
    TButton& GIS_show_tables_button;

    TButton& explore_GIS_button; // below all the pages

private:
    void wire();
    void reload_PAT_attributes();
    void show_hide_attributes();
    void show_hide_outputs();
    void show_selected_tables(const TShellListView& list);

    std::unique_ptr<TESK::Text_list> PAT_attributes;
};
