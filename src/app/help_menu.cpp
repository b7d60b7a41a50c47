#include "app/help_menu.h"

#include "app/facts_form.h"
#include "app/page_explanations.h"
#include "app/tilverra_project_form.h"
#include "platform/files.h"
#include "platform/host_description.h"
#include "toolkit/mnemonics.h"
#include "toolkit/screen_language.h"
#include "trees/suite_directory.h"

namespace {

constexpr const char* program_and_version = "Project editor " PROGRAM_VERSION;

// The page that the user looks at: the innermost of those in front that has an explanation.
const TTabSheet* page_in_front(TControl& window) {
    const TTabSheet* found = nullptr;
    window.walk([&](TControl& control) {
        if (control.kind() == Control_kind::tab_sheet && control.usable() &&
            explanation_of_page(control.name().c_str()) != nullptr)
            found = static_cast<TTabSheet*>(&control);
        return true;
    });
    return found;
}

// The suite's programs that projects are worked on with, and where they are.
std::vector<std::string> told_of_programs() {
    if (suite_directory == nullptr)
        return {};
    TVS::Tilverra_Directory& programs = suite_directory->get_tilverra_directory();
    std::vector<std::string> lines;
    for (const TESK::File_name* program :
         {&programs.get_model_exe(), &programs.get_scenario_editor_exe(),
          &programs.get_output_manager_advanced_exe(), &programs.get_database_editor_exe(),
          &programs.get_GIS_runner_exe(), &programs.get_carbon_sequestration_optimizer_exe(),
          &programs.get_carbon_sequestration_viewer_exe(), &suite_directory->get_explorer_exe(),
          &suite_directory->get_suite_exe()}) {
        const std::string name = screen_text(*program);
        lines.push_back(platform::is_file(*program) ? name : worded("%1 (missing)", name));
    }
    return lines;
}

} // namespace

std::vector<Menu_item> Help_menu::items() {
    const auto item = [](const char* text, const char* shortcut, std::function<void()> act) {
        Menu_item made;
        made.text = text;
        made.shortcut = shortcut;
        made.on_click = std::move(act);
        return made;
    };
    Menu_item line;
    line.text = "-";
    return {item("&User guide", "F1", [this] { open_guide(); }),
            item("&What this page does", "Shift+F1", [this] { explain_page(); }),
            item("&Documentation", "",
                 [this] {
                     form.parameter_file_form()
                         .documentation.documentation_buttons.front()
                         ->parent()
                         ->bring_to_front();
                 }),
            line,
            item("&Versions...", "", [this] { show_versions(); }),
            item("&About...", "", [] { show_about(); })};
}

void Help_menu::open_guide() {
    if (!form.parameter_file_form().documentation.open_guide())
        form.parameter_file_form().notice(
            worded("The user guide is not on this computer, or nothing can show it."));
}

void Help_menu::explain_page() {
    const TTabSheet* const page = page_in_front(form.parameter_file_form());
    if (page == nullptr)
        return;
    message_box(explanation_of_page(page->name().c_str()), without_mnemonic(page->native_text()),
                Button_set::ok);
}

void Help_menu::show_versions() {
    Tfacts_form versions("Versions");
    versions.add_fact("Program", program_and_version);
    for (const std::string& library : libraries_)
        versions.add_fact(&library == &libraries_.front() ? "Libraries" : "", library);
    versions.add_fact("Computer", platform::host_description());
    versions.add_fact("Suite", suite_directory == nullptr ? "" : screen_text(*suite_directory));
    versions.set_lines(told_of_programs());
    versions.show_modal();
}

void Help_menu::show_about() {
    message_box(
        std::string(program_and_version) +
            "\n\nEdits projects of cropping-system simulations, runs their scenarios and compares the "
            "results.\nIt simulates nothing itself: it starts the other programs of the suite.",
        "About this program", Button_set::ok);
}
