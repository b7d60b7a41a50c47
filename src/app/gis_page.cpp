#include "app/gis_page.h"

#include "app/tilverra_project_form.h"
#include "platform/files.h"
#include "trees/suite_directory.h"

#include <utility>

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
    page.add<TLabel>(std::string("label_") + name, caption).set_names_next(true);
    auto& list = fill(page.add<TShellListView>(name));
    list.set_mask("*.dbf");
    return list;
}

} // namespace

GIS_page::GIS_page(TTilverra_project_form& project_form)
    : Project_page(project_form),
      GIS_tabsheet(form.project_pagecontrol.add<TTabSheet>("GIS_tabsheet", "GIS")),
      GIS_pagecontrol(fill(GIS_tabsheet.add<TPageControl>("GIS_pagecontrol"))),
      GIS_maps_tabsheet(GIS_pagecontrol.add<TTabSheet>("GIS_maps_tabsheet", "Maps")),
      STATSGO_tabsheet(GIS_pagecontrol.add<TTabSheet>("STATSGO_tabsheet", "STATSGO (optional)")),
      GIS_tallies_tabsheet(
          GIS_pagecontrol.add<TTabSheet>("GIS_tallies_tabsheet", "Select statistical tallies")),
      GIS_run_tabsheet(GIS_pagecontrol.add<TTabSheet>("GIS_run_tabsheet", "Run options")),
      GIS_analysis_tabsheet(GIS_pagecontrol.add<TTabSheet>("GIS_analysis_tabsheet", "Analysis")),
      GIS_output_tabsheet(GIS_pagecontrol.add<TTabSheet>("GIS_output_tabsheet", "Output tables")),
      GIS_coverage_filebar(fill(
          add_row(GIS_maps_tabsheet, "GIS_coverage_panel").add<TAutoFileEditBar>("GIS_coverage_filebar"))),
      GIS_coverage_table_button(add_button(*GIS_coverage_filebar.parent(), "GIS_coverage_table_button",
                                           "Show table",
                                           "Show the polygon attribute table in a window of its own.")),
      GIS_PAT_fields_pagecontrol(
          GIS_maps_tabsheet.add<TPageControl>("GIS_PAT_fields_pagecontrol", Tabs::none)),
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
          (GIS_run_tabsheet.add<TLabel>("label_GIS_scenarios", "Scenarios").set_names_next(true),
           fill(GIS_run_tabsheet.add<TFileCheckListBox>("GIS_scenarios_checklistbox")))),
      GIS_scenarios_note(add_note(GIS_run_tabsheet, "GIS_scenarios_note",
                                  "The scenarios that a run over the map leaves in its output directory are "
                                  "listed here.")),
      GIS_view_holding_capacity_button(add_button(GIS_analysis_tabsheet, "GIS_view_holding_capacity_button",
                                                  "View water holding capacity")),
      GIS_perform_prob_distribution(add_button(GIS_analysis_tabsheet, "GIS_perform_prob_distribution",
                                               "Perform probability distribution")),
      GIS_analysis_note(
          add_note(GIS_analysis_tabsheet, "GIS_analysis_note", "Not available in this program.")),
      GIS_tally_shellistview(
          add_table_list(GIS_output_tabsheet, "GIS_tally_shellistview", "Tables of the runs")),
      GIS_aggregation_shellistview(
          add_table_list(GIS_output_tabsheet, "GIS_aggregation_shellistview", "Aggregated tables")),
      GIS_show_tables_button(
          add_button(GIS_output_tabsheet, "GIS_show_tables_button", "Show table",
                     "Show each table that is selected in the lists in a window of its own. Enter or a "
                     "double click shows the table under the cursor.")),
      explore_GIS_button(add_button(GIS_tabsheet, "explore_GIS_button", "Explore GIS folder",
                                    "Show the folder of the runs over the map in the suite's explorer.")),
      PAT_attributes(std::make_unique<TESK::Text_list>()) {
    Place wide = MUID_found_note.place();
    wide.span = 2;
    MUID_found_note.set_place(wide);
    for (TButton* button : {&GIS_show_tables_button, &explore_GIS_button})
        keep_narrow(*button);
    GIS_scenarios_checklistbox.set_mask("*.tvn");
    GIS_omit_years_edit.set_Description_label("Equilibration years to omit");
    // Neither does anything in the suite as it stands.
    for (TButton* button : {&GIS_view_holding_capacity_button, &GIS_perform_prob_distribution}) {
        button->set_enabled(false);
        button->set_hint(GIS_analysis_note.text());
    }
    wire();
}

void GIS_page::wire() {
    explore_GIS_button.on_click = [this] { form.scenarios.lists.explore_scenarios_buttonClick(); };
    // A run leaves its tables while the project is open.
    GIS_output_tabsheet.on_show = [this] {
        GIS_tally_shellistview.Update();
        GIS_aggregation_shellistview.Update();
    };
    for (TShellListView* list : {&GIS_tally_shellistview, &GIS_aggregation_shellistview}) {
        list->on_double_click = [this, list] { show_selected_tables(*list); };
        list->on_key = [this, list](const Key& key) {
            if (key.code != Key_code::enter)
                return false;
            show_selected_tables(*list);
            return true;
        };
    }
    GIS_show_tables_button.on_click = [this] {
        show_selected_tables(GIS_tally_shellistview);
        show_selected_tables(GIS_aggregation_shellistview);
    };
    GIS_coverage_table_button.on_click = [this] {
        TESK::Smart_file_name file;
        file = std::string(record().GIS_parameters.coverage_PAT_filename);
        workspace().enter_project_folder();
        file.qualify();
        form.tables.show(file);
    };
    STATSGO_tabsheet.on_show = [this] { STATSGO_tabsheetShow(); };
    GIS_coverage_filebar.OnChange = [this] { GIS_coverage_filebar_onchange(); };
    GIS_coverage_filebar.on_after_change = GIS_coverage_filebar.OnChange;
    GIS_coverage_filebar.on_exit = GIS_coverage_filebar.OnChange;
    for (TAutoCheckBox* check :
         {&GIS_soils_mapped_check, &GIS_steepness_mapped_check, &GIS_init_PAW_mapped_check,
          &GIS_init_NO3_mapped_check, &uniform_soil_profile_mapped_check, &GIS_weather_check,
          &GIS_rotations_mapped_check, &GIS_recalibration_check, &GIS_water_table_check})
        check->on_click = [this] { attribute_option_checked(); };
}

void GIS_page::bind() {
    forget_bound_controls();
    GIS_Project_parameters& p = record().GIS_parameters;
    bind_control(GIS_coverage_filebar, p.coverage_PAT_filename);
    bind_control(GIS_soils_mapped_check, p.soils_mapped);
    bind_control(GIS_steepness_mapped_check, p.steepness_mapped);
    bind_control(GIS_init_PAW_mapped_check, p.init_PAW_mapped);
    bind_control(GIS_init_NO3_mapped_check, p.init_NO3_mapped);
    bind_control(uniform_soil_profile_mapped_check, p.uniform_soil_proile_mapped);
    bind_control(GIS_weather_check, p.weather_mapped);
    bind_control(GIS_rotations_mapped_check, p.rotations_mapped);
    bind_control(GIS_recalibration_check, p.recalibration_mapped);
    bind_control(GIS_water_table_check, p.water_table_mapped);
    bind_control(GIS_omit_years_edit, p.valid_equilibriate_years);
    bind_control(GIS_STATSGO_capability_class_edit, p.valid_max_capability_class);
    bind_control(GIS_STATSGO_dryland_checkbox, p.dryland);
    bind_control(GIS_STATSGO_combine_checkbox, p.combine_similar_sequences);
    bind_control(GIS_STATSGO_max_evap_layer_thickness_edit, p.valid_max_evap_layer_thickness);
    bind_control(edit_GIS_output_directory, p.output_directory);
    bind_control(GIS_separate_crop_checkbox, p.separate_crops);
}

void GIS_page::Update() {
    update_bound_controls();
    reload_PAT_attributes();
}

// Only the header of the table is read.
void GIS_page::reload_PAT_attributes() {
    if (!has_project())
        return;
    GIS_Project_parameters& p = record().GIS_parameters;
    auto attributes = std::make_unique<TESK::Text_list>();
    for (const std::string& name : polygon_attributes(p.coverage_PAT_filename))
        attributes->append(new TESK::Text_list::Item(name.c_str()));
    const std::pair<TAutoContainerComboBox*, TESK::Ustring*> combos[] = {
        {&GIS_polygon_id_combo, &p.polygon_ID_attribute},
        {&GIS_soil_combo, &p.soil_attribute},
        {&GIS_steepness_combo, &p.steepness_attribute},
        {&GIS_init_PAW_combo, &p.init_PAW_attribute},
        {&GIS_init_NO3_combo, &p.init_NO3_attribute},
        {&GIS_soil_sand_combo, &p.uniform_sand_attribute},
        {&GIS_soil_clay_combo, &p.uniform_clay_attribute},
        {&GIS_soil_depth_combo, &p.soil_depth_attribute},
        {&GIS_weather_combo, &p.weather_attribute},
        {&GIS_rotations_combo, &p.rotation_attribute},
        {&GIS_recalibration_combo, &p.recalibration_attribute},
        {&GIS_water_table_combo, &p.water_table_attribute},
    };
    for (const auto& [combo, attribute] : combos)
        combo->bind_to(attribute, attributes.get(), nullptr);
    PAT_attributes = std::move(attributes);
}

void GIS_page::show_hide() {
    GIS_PAT_fields_pagecontrol.set_visible(workspace().coverage_exists());
    GIS_coverage_table_button.set_enabled(workspace().coverage_exists());
    STATSGO_tabsheetShow();
    // What the button has to do with that program is not known; the rule is kept.
    GIS_view_holding_capacity_button.set_visible(suite_programs() != nullptr &&
                                                 suite_programs()->get_scenario_editor_exe().exists());
    show_hide_attributes();
    show_hide_outputs();
}

void GIS_page::show_hide_attributes() {
    const GIS_Project_parameters& p = record().GIS_parameters;
    const std::pair<TControl*, bool> combos[] = {
        {&GIS_soil_combo, p.soils_mapped},
        {&GIS_steepness_combo, p.steepness_mapped},
        {&GIS_init_PAW_combo, p.init_PAW_mapped},
        {&GIS_init_NO3_combo, p.init_NO3_mapped},
        {&GIS_soil_sand_combo, p.uniform_soil_proile_mapped},
        {&GIS_soil_clay_combo, p.uniform_soil_proile_mapped},
        {&GIS_soil_depth_combo, p.uniform_soil_proile_mapped},
        {&GIS_weather_combo, p.weather_mapped},
        {&GIS_rotations_combo, p.rotations_mapped},
        {&GIS_recalibration_combo, p.recalibration_mapped},
        {&GIS_water_table_combo, p.water_table_mapped},
    };
    for (const auto& [combo, is_mapped] : combos)
        combo->set_visible(is_mapped);
    for (const char* name :
         {"label_GIS_soil_sand_combo", "label_GIS_soil_clay_combo", "label_GIS_soil_depth_combo"})
        GIS_uniform_soil_tabsheet.find(name)->set_visible(p.uniform_soil_proile_mapped);
    MUID_found_note.set_visible(PAT_attributes->find("MUID", true) != nullptr);
}

void GIS_page::show_hide_outputs() {
    Tilverra_project_directory* const project =
        workspace().ensure_project_directory() ? workspace().project_directory.get() : nullptr;
    workspace().enter_project_folder();
    const bool has_outputs = project != nullptr && project->get_GIS_directory(false).exists();
    GIS_output_tabsheet.set_visible(has_outputs);
    GIS_tally_shellistview.set_visible(has_outputs);
    if (has_outputs)
        show_folder(GIS_tally_shellistview, project->get_GIS_directory(false));
    const bool has_aggregation = project != nullptr && project->get_aggregation_directory(false).exists();
    GIS_aggregation_shellistview.set_visible(has_aggregation);
    if (has_aggregation)
        show_folder(GIS_aggregation_shellistview, project->get_aggregation_directory(false));
    if (project != nullptr &&
        (workspace().is_GIS() || form.project_pagecontrol.active_page() == &GIS_tabsheet))
        show_folder(GIS_scenarios_checklistbox, project->get_GIS_directory(false));
    GIS_scenarios_note.set_visible(GIS_scenarios_checklistbox.count() == 0);
}

void GIS_page::show_selected_tables(const TShellListView& list) {
    for (const std::string& file : list.selected_paths())
        form.tables.show(record_text(file));
}

void GIS_page::show_template_ok(bool is_ok) {
    show_verdict(GIS_active_scenario_note, is_ok);
}

void GIS_page::attribute_option_checked() {
    form.show_hide();
}

void GIS_page::GIS_coverage_filebar_onchange() {
    reload_PAT_attributes();
    form.show_hide();
}

void GIS_page::STATSGO_tabsheetShow() {
    if (!has_project())
        return;
    const bool exists = platform::exists(record().STATSGO_path);
    GIS_statsgo_panel.set_visible(exists);
    GIS_STATSGO_directory_note.set_visible(!exists);
}
