// What can be done with the scenario under the cursor of a list, as a menu on the line itself.
#pragma once

#include "app/project_page.h"
#include "operations/operation_outcome.h"
#include "toolkit/menu.h"

#include <string>
#include <vector>

class Scenario_menu : public Project_page {
public:
    explicit Scenario_menu(TTilverra_project_form& project_form) : Project_page(project_form) {}

    // The items, for the list in front; disabled where there is no line to act on.
    std::vector<Menu_item> items();
    // Shows them at the pointer.
    void popup();

private:
    // The file of the line under the cursor, "" without one.
    std::string file() const;
    void open_in_editor();
    void run_beside();
    void show_output();
    void show_files();
    void copy_name();
    using Operation = Operation_outcome (*)(Project_workspace&, const TESK::File_name&, const std::string&);
    void give_name(Operation operation, const char* instruction, const char* failure_title);
};
