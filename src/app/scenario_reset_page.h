// The page "Reset": making groups of settings of the checked scenarios those of the active one.
#pragma once

#include "app/project_page.h"
#include "operations/scenario_reset.h"

#include <array>

class Scenario_reset_page : public Project_page {
public:
    Scenario_reset_page(TTilverra_project_form& project_form, TPageControl& pages);

    void reset_scenario_button_onclick();

    TTabSheet& scenario_reset_tabsheet;
    std::array<TCheckBox*, ::reset_boxes.size()> reset_checkboxes{}; // in the order of the table of boxes
    TButton& reset_scenario_button;

private:
    TButton& add_controls();
    Ticked_reset_boxes ticked_reset_boxes() const;
};
