#include "operations/scenario_catalogue.h"

#include "operations/scenario_renaming.h"
#include "support/failing_step.h"
#include "support/temporary_drives.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace {

// A project in the folder p, which no program is started on.
class Catalogue_test : public testing::Test, private Program_host {
protected:
    Catalogue_test() {
        drives.write("p.tvp");
        workspace.ensure_project_directory();
    }
    std::string project_file() const override { return "C:\\p.tvp"; }
    bool save() override { return ++saves > 0; }
    bool run(const std::string&, const std::string&, const std::string&, const std::string&, bool,
             int) override {
        return false;
    }
    bool was_cancelled() const override { return false; }

    std::string scenario(const std::string& name) const { return drives.read("p/Scenarios/" + name); }
    bool there(const std::string& name) const { return std::filesystem::exists(drives.host("p/" + name)); }
    // The first letter of the description of each of the scenarios, "-" without one.
    std::string descriptions(const std::vector<std::string>& names) const {
        std::string letters;
        for (const std::string& name : names) {
            const std::string text = scenario(name + ".tvn");
            const std::size_t place = text.find("description=");
            letters += place == std::string::npos ? '-' : text[place + 12];
        }
        return letters;
    }

    Temporary_drives drives;
    int saves = 0;
    Tilverra_project_editor_parameters record{"model.exe"};
    Project_workspace workspace{record, *this, Tilverra_project_type::tilverra};
};

TEST_F(Catalogue_test, an_import_reads_what_it_can_and_replaces_only_what_the_user_lets_it) {
    const std::vector<std::string> names = {"a", "b", "c", "d"};
    std::vector<std::string> files;
    for (const std::string& name : names) {
        drives.write("old/" + name + ".sim", "[version]\nmajor=4\n[scenario]\ndescription=new\n");
        files.push_back("C:\\old\\" + name + ".sim");
    }
    std::filesystem::create_directory(drives.host("old/folder.sim"));
    drives.write("old/cut/b.sim"); // by a full disk
    files.insert(files.begin(), {"C:\\old\\gone.sim", "C:\\old\\folder.sim", "C:\\old\\cut\\b.sim"});
    using enum Import_answer;
    const std::tuple<std::vector<Import_answer>, const char*, std::size_t> cases[] = {
        {{replace, keep, replace}, "nonn", 3},
        {{keep, replace_all}, "onnn", 3},
        {{keep_all}, "ooon", 1},
        {{replace, stop}, "ooo-", 0}};
    // The scenarios a to c are there already.
    for (const auto& [answers, descriptions_then, done] : cases) {
        for (const char* name : {"a", "b", "c"})
            drives.write(std::string("p/Scenarios/") + name + ".tvn", "[scenario]\ndescription=old\n");
        std::filesystem::remove(drives.host("p/Scenarios/d.tvn"));
        std::size_t asked = 0;
        const Operation_outcome outcome = import_version_3_scenarios(
            workspace, files, [&, &answers = answers](const std::string&) { return answers.at(asked++); },
            nullptr, {});
        EXPECT_EQ(asked, answers.size());
        EXPECT_EQ(descriptions(names), descriptions_then);
        EXPECT_EQ(outcome.done, done);
        EXPECT_EQ(outcome.stopped, answers.back() == stop);
        ASSERT_EQ(outcome.not_done.size(), 3U);
        EXPECT_EQ(outcome.not_done[0].file, "C:\\old\\gone.sim");
    }
    EXPECT_FALSE(there("Scenarios/gone.tvn"));
}

TEST_F(Catalogue_test, a_folder_or_an_anchor_is_no_scenario) {
    drives.write("p/Scenarios/base.tvn", "[scenario]\n");
    drives.write("p/Scenarios/dry/Output/annual.XEB");
    record.active_scenario = "Scenarios\\base.tvn";
    EXPECT_EQ(create_scenario(workspace, "base.tvn#2", true).done, 1U);
    EXPECT_EQ(scenario("base.tvn#2.tvn"), "[scenario]\n");
    ASSERT_EQ(mkfifo(drives.host("p/Scenarios/pipe.tvn").c_str(), 0600), 0);
    record.active_scenario = "Scenarios\\pipe.tvn";
    EXPECT_EQ(create_scenario(workspace, "copy", true).not_done.size(), 1U) << "a pipe is not waited for";

    record.active_scenario = "Scenarios\\dry";
    complete_active_scenario(workspace, Scenario_folder::created);
    EXPECT_EQ(record.active_scenario, "C:\\p\\Scenarios\\dry.tvn");
}

TEST_F(Catalogue_test, many_are_deleted_with_their_outputs_until_it_is_stopped_and_come_back) {
    std::vector<std::string> names;
    for (const char* name : {"a", "b", "c"}) {
        drives.write(std::string("p/Scenarios/") + name + ".tvn", name);
        drives.write(std::string("p/Scenarios/") + name + "/Output/annual.XEB", name);
        names.push_back(std::string(name) + ".tvn");
    }
    const TESK::Directory_name folder = workspace.scenarios_directory(Scenario_folder::created, false);
    Change_backups backups(*workspace.project_directory);
    Operation_outcome outcome = delete_scenarios(folder, names, true, &backups,
                                                 [](std::size_t done, std::size_t) { return done < 2; });
    EXPECT_EQ(outcome.done, 2U);
    EXPECT_TRUE(outcome.stopped);
    EXPECT_FALSE(there("Scenarios/a") || there("Scenarios/b.tvn"));
    EXPECT_TRUE(there("Scenarios/c.tvn"));

    EXPECT_EQ(backups.undo_last({}).done, 4U);
    EXPECT_EQ(scenario("a.tvn") + scenario("b/Output/annual.XEB"), "ab");
    EXPECT_EQ(delete_scenarios(folder, {"a.tvn"}, true, nullptr, {}).done, 1U);
    EXPECT_FALSE(there("Scenarios/a"));

    const Failing_step no_rename(platform::Write_step::rename, EIO);
    outcome = delete_scenarios(folder, {"b.tvn"}, true, &backups, {});
    EXPECT_FALSE(outcome.ok());
    EXPECT_EQ(scenario("b.tvn"), "b");
}

TEST_F(Catalogue_test, many_go_to_the_trash_together_and_none_by_half_when_it_is_stopped) {
    std::vector<std::string> names;
    for (int i = 0; i < 120; ++i) {
        drives.write("p/Scenarios/" + names.emplace_back(std::to_string(i) + ".tvn"));
        drives.write("p/Scenarios/" + std::to_string(i) + "/Output/annual.XEB");
    }
    const TESK::Directory_name folder = workspace.scenarios_directory(Scenario_folder::created, false);
    const Operation_outcome outcome =
        delete_scenarios(folder, names, false, nullptr, [](std::size_t done, std::size_t total) {
            EXPECT_EQ(total, 120U);
            return done < 61;
        });
    EXPECT_EQ(outcome.done, 63U);
    EXPECT_TRUE(outcome.stopped && outcome.ok());
    for (int i = 0; i < 120; ++i)
        for (const char* ending : {"", ".tvn"})
            EXPECT_EQ(there("Scenarios/" + std::to_string(i) + ending), i >= 63) << i;
}

TEST_F(Catalogue_test, a_renamed_scenario_keeps_its_outputs_and_every_place_that_names_it) {
    drives.write("p/Scenarios/dry.tvn",
                 "[parameter_filenames]\r\nsoil=Scenarios\\dry\\Database\\Soil\\own.sil\r\n"
                 "weather_database=C:\\p\\Scenarios\\DRY\\w.XEB\r\nrotation=dry\\r.rot\r\n");
    drives.write("p/Scenarios/dry/Output/annual.XEB", "run");
    drives.write("p/Scenarios/other.tvn",
                 "[parameter_filenames]\nsoil=C:\\p\\Scenarios\\dry\\own.sil\n# dry\n");
    const std::string unrelated = "[scenario]\ndescription=dry\n[parameter_filenames]\nsoil=C:\\dry\\x.sil\n";
    drives.write("p/Generated_scenarios/00001.tvn", unrelated);
    for (const char* comparison : {"dry vs wet", "wet vs dry", "wet vs drier"})
        drives.write(std::string("p/scenario_comparison/") + comparison + "/Output/annual.XEB");
    workspace.enter_project_folder();
    record.active_scenario = "Scenarios\\dry.tvn";
    record.template_scenario = "C:\\p\\Scenarios\\dry.tvn";
    const TESK::File_name dry("C:\\p\\Scenarios\\dry.tvn");

    for (const char* taken : {"other", "a/b", "", "DRY"})
        EXPECT_NE(rename_scenario(workspace, dry, taken).refused, "") << taken;
    const Operation_outcome outcome = rename_scenario(workspace, dry, "wetter");
    EXPECT_EQ(describe_failures(outcome), "");
    EXPECT_FALSE(there("Scenarios/dry.tvn") || there("Scenarios/dry"));
    EXPECT_EQ(scenario("wetter/Output/annual.XEB"), "run");
    EXPECT_EQ(scenario("wetter.tvn"),
              "[parameter_filenames]\r\nsoil=Scenarios\\wetter\\Database\\Soil\\own.sil\r\n"
              "weather_database=C:\\p\\Scenarios\\wetter\\w.XEB\r\nrotation=dry\\r.rot\r\n");
    EXPECT_EQ(scenario("other.tvn"),
              "[parameter_filenames]\nsoil=C:\\p\\Scenarios\\wetter\\own.sil\n# dry\n");
    EXPECT_EQ(drives.read("p/Generated_scenarios/00001.tvn"), unrelated);
    for (const char* comparison : {"wetter vs wet", "wet vs wetter", "wet vs drier"})
        EXPECT_TRUE(there(std::string("scenario_comparison/") + comparison)) << comparison;
    EXPECT_EQ(record.active_scenario, "Scenarios\\wetter.tvn");
    EXPECT_EQ(record.template_scenario, "C:\\p\\Scenarios\\wetter.tvn");
    EXPECT_EQ(saves, 1);
    EXPECT_EQ(folder_to_show(TESK::File_name("C:\\p\\Scenarios\\wetter.tvn")), "C:\\p\\Scenarios\\wetter");
}

TEST_F(Catalogue_test, a_duplicate_has_a_database_of_its_own_and_no_outputs) {
    drives.write("p/Scenarios/dry.tvn", "[parameter_filenames]\nsoil=Scenarios\\dry\\Database\\own.sil\n");
    drives.write("p/Scenarios/dry/Database/own.sil", "soil");
    drives.write("p/Scenarios/dry/Output/annual.XEB", "run");
    workspace.enter_project_folder();
    const TESK::File_name dry("C:\\p\\Scenarios\\dry.tvn");
    EXPECT_TRUE(duplicate_scenario(workspace, dry, "dry2").ok());
    EXPECT_EQ(scenario("dry2.tvn"), "[parameter_filenames]\nsoil=Scenarios\\dry2\\Database\\own.sil\n");
    EXPECT_EQ(scenario("dry2/Database/own.sil"), "soil");
    EXPECT_FALSE(there("Scenarios/dry2/Output"));
    EXPECT_EQ(duplicate_scenario(workspace, dry, "dry2").done, 0U);
    EXPECT_EQ(folder_to_show(TESK::File_name("C:\\p\\Scenarios\\x.tvn")), "C:\\p\\Scenarios");
}

} // namespace
