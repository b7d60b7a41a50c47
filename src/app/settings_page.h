// The page "Settings": what stands in the active scenario and the ticked ones, side by side, and changing it.
#pragma once

#include "app/project_page.h"
#include "app/setting_rows.h"

#include <string>

class Settings_page : public Project_page {
public:
    explicit Settings_page(TTilverra_project_form& project_form);

    // Reads the scenarios anew when the page is in front; changes that are not applied stay, and with them
    // what is shown, unless another project has come.
    void Update();
    // Asks what is to become of changes that are not applied. False when the user stays.
    bool may_close();

    TTabSheet& settings_tabsheet;
    TEdit& settings_filter_edit;
    TCheckBox& settings_only_differing_checkbox;
    TTable& settings_table;
    TLabel& settings_count_label;
    TButton& settings_give_to_all_button;
    TButton& settings_apply_button;
    TButton& settings_discard_button;

private:
    void read();
    void filter();
    void give_to_all();
    void apply();
    void discard();
    void show_state();

    Setting_rows rows_;
    std::string project_folder_;
};
