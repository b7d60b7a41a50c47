// The page of the comparisons between scenarios.
#pragma once

#include "app/page_parts.h"
#include "editing/sim_database_edit_bars.h"
#include "toolkit/list_box.h"

struct Comparison_page {
    explicit Comparison_page(TPageControl& pages);

    TTabSheet& tabsheet_scenario_comparison;
    TCheckListBox& comparisons_checklistbox;
    TAutoSimDatabaseDropdownFileEditBar& comparison_output_generation_filebar;
    TButton& comparison_button_view_output;
};
