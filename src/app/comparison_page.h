// The page of the comparisons between scenarios.
#pragma once

#include "app/project_page.h"
#include "editing/sim_database_edit_bars.h"
#include "toolkit/list_box.h"

class Comparison_page : public Project_page {
public:
    explicit Comparison_page(TTilverra_project_form& project_form);

    void bind();
    // Looks for output options in the databases of the suite and of the project.
    void Update();
    // Lists the comparisons of the project; needs a project directory.
    void list_again();

    void tabsheet_scenario_comparisonEnter();
    void comparison_button_view_outputClick();

    TTabSheet& tabsheet_scenario_comparison;
    TCheckListBox& comparisons_checklistbox;
    TAutoSimDatabaseDropdownFileEditBar& comparison_output_generation_filebar;
    TButton& comparison_button_view_output;
    TButton& comparison_view_tables_button;

private:
    void view_tables();

    TESK::Smart_directory_name master_output_{""};
    TESK::Smart_directory_name project_output_{""};
};
