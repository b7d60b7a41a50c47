// The page "Edit": making, opening, importing and deleting scenarios, and the way to the parameter files.
#pragma once

#include "app/project_page.h"
#include "toolkit/dialogs.h"
#include "toolkit/edit.h"

#include <string>
#include <vector>

class Scenario_edit_page : public Project_page {
public:
    Scenario_edit_page(TTilverra_project_form& project_form, TPageControl& pages);

    void scenario_create_button_onclick();
    void scenario_open_active_button_onclick();
    void scenario_open_other_onclick();
    void scenario_open_SIM_onclick();
    void scenario_delete_button_onclick();
    // Asks what is to become of these scenarios of the list in front, and deletes them; of none, the active
    // scenario.
    void ask_and_delete(const std::vector<std::string>& files);
    void parameter_database_onclick();
    void open_master_database();
    void open_project_database();
    void button_launch_TVS_suiteClick();

    TTabSheet& scenario_edit_tabsheet;
    TButton& scenario_create_button;
    TEdit& edit_new_scenario_name;
    TCheckBox& checkbox_copy_active_scenario;
    TButton& scenario_open_active_button;
    TButton& scenario_open_other;
    TButton& scenario_open_SIM;
    TButton& scenario_delete_button;
    TButton& parameter_database_button;
    TButton& button_launch_TVS_suite;
    TFileDialog SIM_dialog;
    TPopupMenu database_popup;

private:
    void wire();
    Operation_outcome delete_active(bool permanently);
    Operation_outcome delete_listed(const std::vector<std::string>& listed, bool permanently);
};
