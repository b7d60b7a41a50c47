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
    TCheckBox& settings_template_checkbox; // the template stands before the scenarios
    TTable& settings_table;
    TLabel& settings_count_label;
    TButton& settings_give_to_all_button;
    TButton& settings_apply_button;
    TButton& settings_discard_button;
    TLabel& settings_progress_note;
    TProgressBar& settings_progressbar;
    TFileDialog settings_file_dialog;

private:
    std::vector<std::string> wanted_files();
    std::string template_file() const;
    void read();
    bool show_columns();
    void reword();
    void filter();
    void edit_in_dialog(int row, int column);
    void open_menu();
    void give_to_all();
    void template_clicked();
    void apply();
    void discard();
    void show_state();
    void show_edited();

    Setting_rows rows_;
    std::string project_folder_;
    bool is_at_work_ = false; // painting meanwhile must not begin anew
};
