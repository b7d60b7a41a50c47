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

    static constexpr const char* tick_all = "&Tick all shown";

    // The items, for the list in front; disabled where there is no line to act on. Their keys are those that
    // the lists take.
    std::vector<Menu_item> items();
    // What the list in front does with a key; false for one that is none of the items'.
    bool press(const Key& key);
    // Shows them at the pointer.
    void popup();

private:
    struct Entry;

    // The file of the line under the cursor, "" without one.
    std::string file() const;
    void open_in_editor();
    void run_beside();
    void show_output();
    void show_files();
    void rename();
    void duplicate();
    void copy_name();
    const char* why_not_compared() const;
    void compare();
    void show_settings();
    void tick_all_shown();
    void delete_scenario();
    using Operation = Operation_outcome (*)(Project_workspace&, const TESK::File_name&, const std::string&);
    void give_name(Operation operation, const char* instruction, const char* failure_title);
};
