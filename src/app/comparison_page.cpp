#include "app/comparison_page.h"

#include "app/tilverra_project_form.h"
#include "operations/scenario_comparison.h"
#include "trees/suite_directory.h"

Comparison_page::Comparison_page(TTilverra_project_form& project_form)
    : Project_page(project_form), tabsheet_scenario_comparison(form.project_pagecontrol.add<TTabSheet>(
                                      "tabsheet_scenario_comparison", "Scenario comparisons")),
      comparisons_checklistbox(
          fill(tabsheet_scenario_comparison.add<TCheckListBox>("comparisons_checklistbox"))),
      comparison_output_generation_filebar(
          tabsheet_scenario_comparison.add<TAutoSimDatabaseDropdownFileEditBar>(
              "comparison_output_generation_filebar")),
      comparison_button_view_output(add_button(add_row(tabsheet_scenario_comparison, "comparison_buttons"),
                                               "comparison_button_view_output", "View output",
                                               "Show the checked comparisons.")),
      comparison_view_tables_button(add_button(
          *comparison_button_view_output.parent(), "comparison_view_tables_button", "View output tables",
          "Show the tables (.dbf) of the checked comparisons, each in a window of its own.")) {
    tabsheet_scenario_comparison.on_show = [this] { tabsheet_scenario_comparisonEnter(); };
    comparison_button_view_output.on_click = [this] { comparison_button_view_outputClick(); };
    comparison_view_tables_button.on_click = [this] { view_tables(); };
}

void Comparison_page::bind() {
    if (TVS::Tilverra_Directory* const programs = suite_programs())
        comparison_output_generation_filebar.file_editbar.set_edit_program(
            &programs->get_output_manager_advanced_exe(), "Edit");
}

// The folders are copied: the bar looks at them longer than a directory object lives. A project
// that was never saved has no level of its own.
void Comparison_page::Update() {
    if (workspace().master_database)
        master_output_ = std::string(workspace().master_database->get_output_directory(false));
    const bool has_folder = workspace().project_directory != nullptr;
    if (has_folder)
        project_output_ = std::string(
            workspace().project_directory->get_database_directory(false).get_output_directory(false));
    comparison_output_generation_filebar.bind_to(
        &record().output_options_file, "Output report generation options", nullptr, nullptr, nullptr, nullptr,
        has_folder ? &project_output_ : nullptr, &master_output_, TESK::Directory_name(""));
}

// A folder that cannot be read takes no line and no tick from the list.
void Comparison_page::list_again() {
    std::vector<std::string> lines;
    std::string failure;
    for (const std::string& name : list_comparisons(workspace(), failure))
        lines.push_back(screen_text(name));
    if (!failure.empty())
        return form.parameter_file_form().notice(worded(screen_text(failure)), Mark::exclamation);
    comparisons_checklistbox.set_lines(lines);
}

void Comparison_page::tabsheet_scenario_comparisonEnter() {
    if (has_project() && workspace().ensure_project_directory())
        list_again();
}

void Comparison_page::comparison_button_view_outputClick() {
    if (!has_project() || !workspace().need_project_directory())
        return;
    form.forget_cancellation();
    for (int i = 0; i < comparisons_checklistbox.count() && !form.was_cancelled(); ++i)
        if (comparisons_checklistbox.checked(i))
            view_comparison(workspace(), record_text(comparisons_checklistbox.line(i).text));
}

void Comparison_page::view_tables() {
    if (!has_project() || !workspace().need_project_directory())
        return;
    std::vector<std::string> files;
    std::string failure;
    for (int i = 0; i < comparisons_checklistbox.count(); ++i) {
        if (!comparisons_checklistbox.checked(i))
            continue;
        const std::string comparison = record_text(comparisons_checklistbox.line(i).text);
        std::string one_failure;
        for (std::string& file : comparison_tables(workspace(), comparison, one_failure))
            files.push_back(std::move(file));
        if (!one_failure.empty())
            failure = one_failure;
    }
    show_tables(files, failure, "The checked comparisons have no tables (.dbf).");
}
