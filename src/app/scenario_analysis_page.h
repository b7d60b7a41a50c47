// The page "Analysis": comparing scenarios with the active one. What came of it is on the page of the
// comparisons.
#pragma once

#include "app/project_page.h"

#include <string>

class Scenario_analysis_page : public Project_page {
public:
    Scenario_analysis_page(TTilverra_project_form& project_form, TPageControl& pages);

    void button_compare_project_scenariosClick();
    void button_compare_other_scenarioClick();
    // Compares the scenario of the line under the cursor, of either list, with those that are checked beside
    // it or, where none is, selected. The marks stay.
    void compare_line();

    TTabSheet& scenario_analysis_tabsheet;
    TButton& button_compare_project_scenarios;
    TButton& button_compare_other_scenario;

private:
    bool active_scenario_is_there();
    bool ask_for_output_of_active();
    int compare_checked(bool& is_stopped);
    bool compare_with(const std::string& other, bool& active_has_output);
};
