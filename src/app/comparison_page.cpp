#include "app/comparison_page.h"

Comparison_page::Comparison_page(TPageControl& pages)
    : tabsheet_scenario_comparison(
          pages.add<TTabSheet>("tabsheet_scenario_comparison", "Scenario comparisons")),
      comparisons_checklistbox(
          fill(tabsheet_scenario_comparison.add<TCheckListBox>("comparisons_checklistbox"))),
      comparison_output_generation_filebar(
          tabsheet_scenario_comparison.add<TAutoSimDatabaseDropdownFileEditBar>(
              "comparison_output_generation_filebar")),
      comparison_button_view_output(add_button(tabsheet_scenario_comparison, "comparison_button_view_output",
                                               "View output", "Show the checked comparisons.")) {}
