#include "operations/scenario_catalogue.h"

#include "platform/file_writer.h"
#include "support/temporary_drives.h"

#include <gtest/gtest.h>

namespace {

// A project in the folder p, which no program is started on.
class Catalogue_test : public testing::Test, private Program_host {
protected:
    Catalogue_test() {
        drives.write("p.tvp");
        workspace.ensure_project_directory();
    }
    std::string project_file() const override { return "C:\\p.tvp"; }
    bool save() override { return true; }
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
    files.insert(files.begin(), {"C:\\old\\gone.sim", "C:\\old\\folder.sim"});
    using enum Import_answer;
    struct Case {
        std::vector<Import_answer> answers;
        const char* descriptions;
        std::size_t done;
    };
    // The scenarios a to c are there already.
    for (const Case& one : {Case{{replace, keep, replace}, "nonn", 3}, Case{{keep, replace_all}, "onnn", 3},
                            Case{{keep_all}, "ooon", 1}, Case{{replace, stop}, "ooo-", 0}}) {
        for (const char* name : {"a", "b", "c"})
            drives.write(std::string("p/Scenarios/") + name + ".tvn", "[scenario]\ndescription=old\n");
        std::filesystem::remove(drives.host("p/Scenarios/d.tvn"));
        std::size_t asked = 0;
        const Operation_outcome outcome = import_version_3_scenarios(
            workspace, files, [&](const std::string&) { return one.answers.at(asked++); }, nullptr, {});
        EXPECT_EQ(asked, one.answers.size());
        EXPECT_EQ(descriptions(names), one.descriptions);
        EXPECT_EQ(outcome.done, one.done);
        EXPECT_EQ(outcome.stopped, one.answers.back() == stop);
        ASSERT_EQ(outcome.not_done.size(), 2U);
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

    platform::File_faults faults;
    faults.fail(platform::Write_step::rename, EIO);
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
            return done < 60;
        });
    EXPECT_EQ(outcome.done, 60U);
    EXPECT_TRUE(outcome.stopped && outcome.ok());
    for (int i = 0; i < 120; ++i)
        for (const char* ending : {"", ".tvn"})
            EXPECT_EQ(there("Scenarios/" + std::to_string(i) + ending), i >= 60) << i;
}

} // namespace
