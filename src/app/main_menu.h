// The menu bar of the project editor. An entry does what its button or page does; one that cannot act says
// why in its hint.
#pragma once

#include "app/help_menu.h"
#include "app/project_page.h"
#include "toolkit/button.h"
#include "toolkit/menu.h"

#include <functional>
#include <string>
#include <vector>

class Main_menu : public Project_page {
public:
    explicit Main_menu(TTilverra_project_form& project_form)
        : Project_page(project_form), help(project_form) {}

    // Puts the bar on the window that holds the project, once.
    void bind();
    // The program's own file, which is started for other projects; "" offers none.
    void set_program(const std::string& program_file) { program_file_ = program_file; }

    TMainMenu* bar = nullptr; // null before bind()
    Help_menu help;

private:
    // Why an entry cannot act; empty when it can.
    using Obstacle = std::function<std::string()>;

    static Menu_item entry(const char* text, std::function<void()> act, const char* shortcut = "",
                           Obstacle obstacle = {});
    static Menu_item button_entry(const char* text, TButton& button, const char* why_not,
                                  const char* shortcut = "");
    static Menu_item page_entry(const char* text, const char* shortcut, TControl& page,
                                const char* why_not = "This project has no such page.");
    Menu_item program_entry(const char* text, std::function<void()> act, const char* shortcut = "") const;
    std::vector<Menu_item> file_items();
    std::vector<Menu_item> edit_items();
    std::vector<Menu_item> run_items();
    std::vector<Menu_item> view_items();

    void open_other(TFileDialog dialog);
    void open_project(const std::string& file);
    void show_properties();
    bool has_folder() const;
    void undo_last_change();
    void show_scenarios();
    void show_GIS();

    std::string program_file_;
};
