// The lists of a project's scenarios, those created and those generated: which lines there are, which are
// checked, and which is under the cursor.
#pragma once

#include "app/project_page.h"
#include "app/scenario_list_table.h"
#include "app/scenario_menu.h"
#include "toolkit/timer.h"

#include <string>
#include <vector>

class Scenario_lists : public Project_page {
public:
    Scenario_lists(TTilverra_project_form& project_form, TPanel& panel);

    void bind();
    // Shows the scenarios of the project's folder.
    void Update();
    void show_hide_generated();

    // The list that operations work on: the one in front.
    TFileCheckListBox& current() { return *current_scenarios_listbox; }
    Scenario_folder current_folder() const;
    // Puts the cursor of each list on the line of the active scenario; on none where it has no such line.
    void point_at_active();
    // Lists a new file of the created ones, in its place.
    void add_created_line(const std::string& file_name);
    // The names of its checked lines, as their files have them.
    std::vector<std::string> checked_files();
    // What is to be run, compared or listed as a whole: the checked lines or, without check marks, the active
    // scenario where it exists. has_chosen() tells whether there is any, chosen() gives the full names; it
    // needs a project directory.
    bool has_chosen() const;
    std::vector<std::string> chosen();
    Scenario_list_table& current_table();
    // The file of a line of that list; needs a project directory.
    std::string scenario_of_line(int index);

    void created_scenarios_listbox_onchange();
    void senerios_select_all_button_onclick();
    void scenerios_select_none_button_onclick();
    void relist_scenarios_button_onclick();
    void explore_scenarios_buttonClick();

    Scenario_menu menu; // of the line under the cursor
    TPageControl& pagecontrol_scenarios;
    TTabSheet& tabsheet_created_scenarios;
    TTabSheet& tabsheet_generated_scenarios;
    TLabel& no_scenarios_note; // while none is created
    Scenario_list_table created;
    Scenario_list_table generated;
    TFileCheckListBox& created_scenarios_filelistbox; // as which the tables are worked with
    TFileCheckListBox& generated_scenarios_filelistbox;
    TFileCheckListBox* current_scenarios_listbox;
    TButton& scenerios_select_all_button;
    TButton& scenerios_select_none_button;
    TButton& relist_scenarios_button;
    TButton& explore_scenarios_button;

    // Makes the list in front the one that operations work on.
    void set_current_list();

    // Has the tables tell the states of scenarios as they are now, soon.
    void states_changed() { states_timer_.set_enabled(true); }

private:
    void refresh_states();
    void wire();
    void delete_by_key();
    int line_of_active(const TFileCheckListBox& list) const;
    void point_at_active(TFileCheckListBox& list);

    // The active scenario that the choice of a line of the generated list made; "" after another choice.
    std::string active_by_generated_;

    TTimer states_timer_{1000};
};
