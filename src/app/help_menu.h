// The menu Help: the guide, what the page in front is for, and what this program is made of.
#pragma once

#include "app/project_page.h"
#include "toolkit/menu.h"

#include <string>
#include <vector>

class Help_menu : public Project_page {
public:
    explicit Help_menu(TTilverra_project_form& project_form) : Project_page(project_form) {}

    std::vector<Menu_item> items();
    // The libraries that the program works with and their versions ("Qt 6.4.2"), for the report of them.
    void set_libraries(std::vector<std::string> libraries) { libraries_ = std::move(libraries); }

private:
    void open_guide();
    void explain_page();
    void show_versions();
    static void show_about();

    std::vector<std::string> libraries_;
};
