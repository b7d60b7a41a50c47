#include "project_support.h"

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
    EXPECT_TRUE(bar.choose("Edit|Select all shown"));
    EXPECT_TRUE(press(form.scenarios.reset.reset_scenario_button));
    EXPECT_NE(scenario("dry"), before);
    EXPECT_TRUE(bar.choose("Edit|Undo the last change to scenarios"));
    EXPECT_EQ(scenario("dry"), before);

    form.options.show_GIS_buttonClick();
    EXPECT_FALSE(form.scenarios.scenarios_tabsheet.visible());
    EXPECT_TRUE(bar.choose("View|Simulation scenarios"));
    EXPECT_EQ(form.project_pagecontrol.active_page(), &form.scenarios.scenarios_tabsheet);
}

} // namespace
