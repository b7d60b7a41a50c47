#include "app/options_page.h"

#include "app/line_progress.h"
#include "app/scenario_table_form.h"
#include "app/tilverra_project_form.h"
#include "operations/scenario_generator.h"
#include "toolkit/screen_language.h"
#include "trees/suite_directory.h"

#include <algorithm>
#include <iostream>
#include <limits>

namespace {

constexpr const char* usual_template_caption = "Template scenario";
constexpr const char* usual_template_note = "A scenario to be used as a template to generate scenarios.";

// Says what a generation would do, and asks whether it is to be begun.
bool may_generate(const Generation_plan& plan) {
    std::string told = worded("Scenarios that will be generated: %1", std::to_string(plan.count)) + '\n' +
                       worded("Scenarios that will be replaced: %1", std::to_string(plan.replaced.size()));
    if (plan.unread_events > 0)
        told += '\n' + worded("Events of the template that no scenario will get, since they are in the old "
                              "spelling or more than are counted: %1",
                              std::to_string(plan.unread_events));
    return message_box(told, "Combinatorial scenario generation", Button_set::ok_cancel) == Modal_result::ok;
}

} // namespace

Options_page::Options_page(TTilverra_project_form& project_form)
    : Project_page(project_form),
      options_tabsheet(form.project_pagecontrol.add<TTabSheet>("options_tabsheet", "Options")),
      options_pagecontrol(options_tabsheet.add<TPageControl>("options_pagecontrol", Tabs::none)),
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
      table_scenario_generation_button(add_button(
          *combinatorial_scenario_generation_button.parent(), "table_scenario_generation_button",
          "Scenarios from a table...",
          "Make a scenario of each row of a table, from the template: of a CSV file or a spreadsheet.")),
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
    wire();
}

void Options_page::set_table_reader(Table_reader* reader) {
    table_reader_ = reader;
    table_scenario_generation_button.set_visible(reader != nullptr);
}

void Options_page::wire() {
    table_scenario_generation_button.set_visible(false);
    table_scenario_generation_button.on_click = [this] { table_scenario_generation_buttonClick(); };
    show_GIS_button.on_click = [this] { show_GIS_buttonClick(); };
    show_optimization_model_button.on_click = [this] { show_optimization_model_buttonClick(); };
    STATSGO_directory_edit.on_change = [this] { STATSGO_directory_edit_onchange(); };
    combinatorial_scenario_generation_button.on_click = [this] {
        combinatorial_scenario_generation_buttonClick();
    };
    combinatorial_scenario_generation_help_button.on_click = [this] {
        combinatorial_scenario_generation_help_buttonClick();
    };
}

void Options_page::bind() {
    forget_bound_controls();
    TVS::Tilverra_Directory* const programs = suite_programs();
    bind_file(template_scenario_filebar, record().template_scenario, usual_template_caption,
              programs == nullptr ? nullptr : &programs->get_scenario_editor_exe());
    bind_file(simulation_model_filebar, record().cropping_system_model, nullptr, nullptr);
}

void Options_page::Update() {
    update_bound_controls();
    STATSGO_directory_edit.set_text(screen_text(record().STATSGO_path));
}

void Options_page::show_template(bool is_template_project) {
    template_scenario_filebar.panel_caption.set_text(is_template_project ? "Template scenario file (required)"
                                                                         : usual_template_caption);
    label_template_scenario_notes.set_text(
        is_template_project
            ? "A scenario to be used as a template to generate and/or run GIS, watershed, and "
              "optimization modules; must be selected"
            : usual_template_note);
}

void Options_page::show_hide() {
    panel_combinatorial_generation.set_visible(!workspace().is_template_project());
    statsgo_groupbox.set_visible(true);
    show_hide_type_buttons();
}

// A project that was started as a tool of one type stays of it.
void Options_page::show_hide_type_buttons() {
    const Tilverra_project_type type = workspace().requested_project_type;
    show_GIS_button.set_down(workspace().is_GIS());
    show_optimization_model_button.set_down(type == Tilverra_project_type::grazing);
    const bool may_choose = type == Tilverra_project_type::tilverra;
    show_GIS_button.set_visible(may_choose);
    show_optimization_model_button.set_visible(may_choose);
}

void Options_page::show_GIS_buttonClick() {
    if (!has_project())
        return;
    workspace().requested_project_type = Tilverra_project_type::gis;
    form.show_hide();
}

void Options_page::show_optimization_model_buttonClick() {
    if (!has_project())
        return;
    form.optimization.tabsheet_optimization.set_visible(true);
    show_optimization_model_button.set_down(true);
    form.project_pagecontrol.set_active_page(form.optimization.tabsheet_optimization);
    form.show_hide_run_buttons();
}

void Options_page::STATSGO_directory_edit_onchange() {
    if (!has_project())
        return;
    record().STATSGO_path = record_text(STATSGO_directory_edit.text());
    form.GIS.STATSGO_tabsheetShow();
}

// Where generated scenarios are seen to appear.
void Options_page::show_generated() {
    Scenario_lists& lists = form.scenarios.lists;
    lists.tabsheet_generated_scenarios.set_visible(true);
    lists.pagecontrol_scenarios.set_active_page(lists.tabsheet_generated_scenarios);
    form.project_pagecontrol.set_active_page(form.scenarios.scenarios_tabsheet);
    lists.pagecontrol_scenarios.set_active_page(lists.tabsheet_generated_scenarios);
    lists.set_current_list();
}

// Lists the scenarios anew, and tells what failed or was not done any more.
void Options_page::tell_outcome(const Operation_outcome& outcome) {
    workspace().enter_project_folder();
    form.show_hide();
    form.scenarios.lists.relist_scenarios_button_onclick();
    show_failures(outcome, outcome.refused.empty() ? "Scenarios not generated" : "No scenarios generated");
    if (outcome.stopped)
        message_box(worded("The generation was stopped. Scenarios generated until then: %1",
                           std::to_string(outcome.done)),
                    "Generation stopped", Button_set::ok);
}

void Options_page::combinatorial_scenario_generation_buttonClick() {
    if (!has_project() || !workspace().need_project_directory())
        return;
    const Generation_plan plan = plan_generation(record(), *workspace().project_directory);
    std::optional<Change_backups> backups;
    if ((plan.refused.empty() && !may_generate(plan)) || !prepare_backups(plan.replaced, backups))
        return;
    show_generated();
    TFileCheckListBox& list = form.scenarios.lists.generated_scenarios_filelistbox;
    Operation_outcome outcome;
    {
        const std::size_t total = std::min<std::uint64_t>(plan.count, std::numeric_limits<int>::max());
        Line_progress progress(form.scenarios, total);
        std::size_t number = 0;
        outcome = generate_scenarios(record(), *workspace().project_directory, pointer_to(backups), std::cout,
                                     [&](const std::string& file_name) {
                                         list.add_line(screen_text(file_name));
                                         list.show_line(list.count() - 1);
                                         progress.show(++number, total, file_name);
                                         progress.step();
                                         return progress.goes_on();
                                     });
    }
    tell_outcome(outcome);
    if (outcome.stopped || !outcome.refused.empty())
        return;
    message_box("The generated scenarios are found under /Simulation scenarios\\ [Generated scenarios]",
                "Scenarios have been generated", Button_set::ok);
}

void Options_page::table_scenario_generation_buttonClick() {
    if (!has_project() || table_reader_ == nullptr || !workspace().need_project_directory())
        return;
    workspace().enter_project_folder();
    TESK::File_name template_file(record().template_scenario);
    template_file.qualify();
    Tscenario_table_form asks(*table_reader_, template_file,
                              workspace().scenarios_directory(Scenario_folder::generated, false));
    asks.prepare_backups = [this](const std::vector<std::string>& files,
                                  std::optional<Change_backups>& backups) {
        return prepare_backups(files, backups);
    };
    if (asks.show_modal() != Modal_result::ok)
        return;
    show_generated();
    const Operation_outcome& outcome = asks.outcome();
    tell_outcome(outcome);
    if (outcome.refused.empty() && !outcome.stopped)
        form.parameter_file_form().notice(worded("Scenarios generated: %1", std::to_string(outcome.done)));
}

void Options_page::combinatorial_scenario_generation_help_buttonClick() {
    if (has_project())
        form.parameter_file_form().view_document("combinatorial_generation.htm");
}
