#include "project_support.h"

#include "platform/host_names.h"
#include "platform/shell.h"
#include "runs/run_folders.h"
#include "runs/run_journal.h"
#include "toolkit/mnemonics.h"

namespace {

TEST_F(Project_test, the_menu_saves_finds_resets_undoes_and_leads_back_to_the_scenarios) {
    open_with("Scenarios\\base.tvn");
    TMainMenu& bar = *form.menu.bar;
    EXPECT_FALSE(bar.choose("Edit|Undo the last change to scenarios")) << "there is nothing to undo";
    EXPECT_FALSE(bar.choose("File|Open...")) << "the program's file is not known";

    form.menu.set_program(program);
    desktop.expect_file_dialog("Open project", {"C:\\projects\\other.tvp"});
    EXPECT_TRUE(bar.choose("File|Open..."));
    EXPECT_NE(started().find("other.tvp"), std::string::npos);

    record->STATSGO_path = "C:\\soils";
    EXPECT_TRUE(parameter_form.offer_key({Key_code::character, "s", false, true}));
    EXPECT_FALSE(parameter_form.has_changes());
    EXPECT_TRUE(parameter_form.visible());
    EXPECT_TRUE(bar.choose("Edit|Find"));
    EXPECT_TRUE(form.scenarios.lists.created.filter_edit.focused());

    write_scenario("base", "[H2O]\n1=0.7\n");
    const std::string before = scenario("dry");
    form.scenarios.reset.reset_checkboxes[3]->set_checked(true);
    EXPECT_TRUE(bar.choose("Edit|Tick all shown"));
    EXPECT_TRUE(press(form.scenarios.reset.reset_scenario_button));
    EXPECT_NE(scenario("dry"), before);

    // Nothing is undone that runs, or may.
    Run_set set;
    set.folder = "C:\\projects\\study";
    set.scenarios = {"C:\\projects\\study\\Scenarios\\dry.tvn"};
    const std::string folder = make_run_set("C:\\projects\\study\\Runs", set).folder;
    Journal_writer writer(folder);
    ASSERT_TRUE(claim_set(folder, 1, writer));
    EXPECT_TRUE(bar.choose("Edit|Undo the last change to scenarios"));
    EXPECT_EQ(parameter_form.status_line.text(),
              "Scenarios of these are being run: dry. Stop the runs first, or wait for their end.");
    const std::string journal = platform::host_path(folder + "\\journal.txt");
    std::filesystem::remove(journal);
    std::filesystem::create_directory(journal);
    EXPECT_TRUE(bar.choose("Edit|Undo the last change to scenarios"));
    EXPECT_EQ(parameter_form.status_line.text().find(
                  "Whether these scenarios are being run cannot be told: dry. The journal C:"),
              0U);
    EXPECT_NE(scenario("dry"), before);
    std::filesystem::remove(journal);
    // What others have changed since is put back only when that is wanted.
    std::filesystem::last_write_time(drives.host("projects/study/Scenarios/dry.tvn"),
                                     std::filesystem::file_time_type::clock::now() + std::chrono::hours(1));
    for (const Modal_result answer : {Modal_result::no, Modal_result::yes}) {
        desktop.expect_message(
            "Changed since",
            "Files of this change have been changed since by others: Scenarios\\dry.tvn. Put "
            "them back all the same? (This can be undone as well.)",
            answer);
        EXPECT_TRUE(bar.choose("Edit|Undo the last change to scenarios"));
        EXPECT_EQ(scenario("dry") == before, answer == Modal_result::yes);
    }

    form.options.show_GIS_buttonClick();
    EXPECT_FALSE(form.scenarios.scenarios_tabsheet.visible());
    EXPECT_TRUE(bar.choose("View|Simulation scenarios"));
    EXPECT_EQ(form.project_pagecontrol.active_page(), &form.scenarios.scenarios_tabsheet);
}

Menu_item& entry(TMainMenu& bar, const std::string& menu, const std::string& text) {
    static Menu_item none;
    for (Menu_item& item : bar.items())
        if (without_mnemonic(item.text) == menu) {
            update_items(item.items);
            for (Menu_item& found : item.items)
                if (without_mnemonic(found.text) == text)
                    return found;
        }
    ADD_FAILURE() << "there is no " << menu << '|' << text;
    return none;
}

TEST_F(Project_test, recent_projects_are_opened_by_the_menu_and_what_cannot_be_says_why) {
    for (const char* project : {"other", "gone"}) {
        copy_data("irrigation_study.tvp", std::string("projects/") + project + ".tvp");
        platform::shell().add_to_recent_documents(std::string("C:\\projects\\") + project + ".tvp");
    }
    std::filesystem::remove(drives.host("projects/gone.tvp"));
    open();
    ASSERT_EQ(parameter_form.save(), Save_outcome::saved);
    TMainMenu& bar = *form.menu.bar;
    EXPECT_EQ(entry(bar, "File", "Open recent").hint, "The program's own file is not known.");
    form.menu.set_program(program);
    std::string told;
    for (const Menu_item& item : entry(bar, "File", "Open recent").items)
        told += item.text + (item.enabled ? "*" : " (" + item.hint + ")") + ';';
    EXPECT_EQ(told,
              "C:\\projects\\study.tvp (This project is open.);gone.tvp (This file is not there any more.);"
              "C:\\projects\\other.tvp*;");
    EXPECT_TRUE(bar.choose("File|Open recent|C:\\projects\\other.tvp"));
    EXPECT_NE(started().find("other.tvp"), std::string::npos);
}

TEST_F(Project_test, each_entry_of_the_menu_is_disabled_for_a_reason_of_its_own) {
    open();
    record->statistical_analysis = false;
    activate("Scenarios\\gone.tvn");
    created().set_item_index(-1);
    TMainMenu& bar = *form.menu.bar;
    for (const auto& [menu, text, hint] :
         {std::tuple("Scenario", "Open in the scenario editor", "Choose a scenario in the list first."),
          {"View", "Statistical tallies",
           "Tick Perform statistical analysis on the page Run, and the page appears."},
          {"View", "Optimization models", ""}}) {
        const Menu_item& item = entry(bar, menu, text);
        EXPECT_EQ(item.hint, hint) << text;
        EXPECT_EQ(item.enabled, item.hint.empty()) << text;
    }
    EXPECT_TRUE(bar.choose("View|GIS"));
    EXPECT_TRUE(form.GIS.GIS_tabsheet.usable());
}

TEST_F(Project_test, properties_and_versions_tell_what_there_is_and_copy_it) {
    open_with("Scenarios\\gone.tvn");
    desktop.expect_modal("facts_form", [&](TForm& shown) {
        EXPECT_TRUE(press(*shown.find("copy_button")));
        EXPECT_TRUE(press(*shown.find("close_button")));
    });
    EXPECT_TRUE(parameter_form.offer_key({Key_code::enter, "", false, false, true}));
    const std::string told = desktop.clipboard_text();
    for (const char* fact : {"File: C:\\projects\\study.tvp\n",
                             "Active scenario: Scenarios\\gone.tvn (missing)\n", "\nScenarios: 3\n"})
        EXPECT_NE(told.find(fact), std::string::npos) << fact << told;

    form.menu.help.set_libraries({"Qt 6"});
    desktop.expect_modal("facts_form", [&](TForm& shown) {
        EXPECT_NE(shown.find("facts_memo")->text().find("tilverra_5.exe\n"), std::string::npos);
        EXPECT_NE(shown.find("facts_memo")->text().find("scenario_editor.exe (missing)"), std::string::npos);
        EXPECT_TRUE(press(*shown.find("close_button")));
    });
    EXPECT_TRUE(form.menu.bar->choose("Help|Versions..."));
}

TEST_F(Project_test, help_opens_the_guide_and_explains_the_page_in_front) {
    open();
    desktop.expect_message(
        "Runs", "Follow the sets of runs that work beside the editor: stop and continue them, run again "
                "what failed, and read what the model printed.");
    form.runs.runs_tabsheet.bring_to_front();
    EXPECT_TRUE(parameter_form.offer_key({Key_code::f1, "", true}));
    EXPECT_TRUE(parameter_form.offer_key({Key_code::f1}));
    EXPECT_EQ(form.parameter_file_form().status_line.text(),
              "The user guide is not on this computer, or nothing can show it.");
    drives.write("Suite/docs/user-guide.md");
    struct : platform::Shell {
        int shell_execute(const std::string&, const std::string& file, int) override {
            opened = file;
            return 33;
        }
        std::string opened;
    } shell;
    const platform::Shell_guard guard(shell);
    EXPECT_TRUE(parameter_form.offer_key({Key_code::f1}));
    EXPECT_EQ(shell.opened, "C:\\Suite\\docs\\user-guide.md");
    EXPECT_TRUE(parameter_form.offer_key({Key_code::character, "9", false, true}));
    EXPECT_EQ(form.project_pagecontrol.active_page(), &form.comparisons.tabsheet_scenario_comparison);
}

} // namespace
