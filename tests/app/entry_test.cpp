#include "app/entry.h"

#include "support/launcher_record.h"
#include "support/temporary_drives.h"
#include "support/test_desktop.h"
#include "trees/program_directory.h"
#include "trees/suite_directory.h"

#include <sstream>

namespace {

class Entry_test : public testing::Test {
protected:
    Entry_test() {
        launcher.result = platform::result_file_not_found;
        drives.write("Suite/Tilverra/project_editor.exe");
        drives.write("work/readme.txt");
        std::filesystem::copy_file(TEST_DATA "/irrigation_study.tvp", drives.host("work/study.tvp"));
        platform::change_directory("C:\\work");
        desktop.on_run = [this](TForm& form) { title = form.text(); };
    }

    int run(std::vector<std::string> arguments,
            const std::string& program = "Suite/Tilverra/project_editor.exe") {
        arguments.insert(arguments.begin(), drives.host(program));
        err.str("");
        launcher.started.clear();
        const int code = run_program(arguments, {}, err);
        delete suite_directory;
        delete program_directory;
        suite_directory = nullptr;
        program_directory = nullptr;
        return code;
    }

    Temporary_drives drives;
    Environment_guard user_settings{"XDG_CONFIG_HOME", drives.host("config")};
    Launcher_record launcher;
    Test_desktop desktop;
    std::string title;
    std::ostringstream err;
};

TEST_F(Entry_test, it_opens_the_project_that_the_argument_names) {
    const std::pair<std::string, std::string> cases[] = {
        {drives.host("work/study.tvp"), "C:\\work\\study.tvp"},
        {"C:\\work\\STUDY.TVP", "C:\\work\\STUDY.TVP"},
        {"study.tvp", "C:\\work\\study.tvp"},
        {drives.host("work/new"), "C:\\work\\new.tvp"},
        {"C:\\work\\new.other", "C:\\work\\new.tvp"},
        {"C:\\work\\new\\.TVS_project", "C:\\work\\new\\.TVS_project"},
        {drives.host("work/new/.TVS_project"), "C:\\work\\new\\.TVS_project"},
    };
    for (const auto& [argument, file] : cases) {
        platform::change_directory("C:\\work");
        EXPECT_EQ(run({argument}), 0);
        EXPECT_EQ(title, "Tilverra project: " + file) << argument;
    }
}

TEST_F(Entry_test, the_suite_is_started_at_the_end_only_for_projects_of_no_special_type) {
    const std::pair<std::vector<std::string>, bool> cases[] = {
        {{"C:\\work\\study.tvp"}, true},
        {{"C:\\work\\study.tvp", "Tilverra"}, true},
        {{"C:\\work\\study.tvp", "no such type"}, true},
        {{"C:\\work\\study.tvp", "GIS"}, false},
        {{"C:\\work\\study.tvp", "morka"}, false},
        {{"C:\\work\\study.tvp", "GIS", "one too many"}, true},
    };
    for (const auto& [arguments, starts_suite] : cases) {
        EXPECT_EQ(run(arguments), 0);
        EXPECT_EQ(launcher.started, starts_suite ? "C:\\Suite\\TVS_suite.exe [1]\n" : "") << arguments.back();
    }
}

TEST_F(Entry_test, the_master_record_is_written_back_at_the_end_with_what_others_keep_in_it) {
    drives.write("Suite/TVS_suite.ini", "[other]\r\nkey=1\r\n");
    EXPECT_EQ(run({"C:\\work\\study.tvp"}), 0);
    const std::string text = drives.read("Suite/TVS_suite.ini");
    EXPECT_NE(text.find("master_simulation_directory=C:\\Simulation\r\n"), std::string::npos);
    EXPECT_NE(text.find("[other]\r\nkey=1\r\n"), std::string::npos);
}

TEST_F(Entry_test, a_program_outside_a_suite_leaves_its_master_record_with_the_user) {
    drives.write("tools/bin/project_editor.exe");
    EXPECT_EQ(run({"C:\\work\\study.tvp"}, "tools/bin/project_editor.exe"), 0);
    for (const char* folder : {"", "tools", "tools/bin", "work"})
        EXPECT_FALSE(std::filesystem::exists(drives.host(folder) + "/TVS_suite.ini")) << folder;
    EXPECT_TRUE(std::filesystem::exists(drives.host("config/bin/TVS_suite.ini")));
}

TEST_F(Entry_test, without_a_file_it_ends_with_code_1_and_help_is_offered_where_there_is_a_folder_of_it) {
    for (const bool has_help : {false, true}) {
        if (has_help)
            drives.write("Suite/Tilverra/project_editor/help/index.html");
        desktop.expect_modal("recent_file_selector_form", [&](TForm& form) {
            EXPECT_EQ(form.find("help_button")->visible(), has_help);
            form.close();
        });
        EXPECT_EQ(run({}), 1);
        EXPECT_EQ(launcher.started, "");
        EXPECT_FALSE(std::filesystem::exists(drives.host("Suite/TVS_suite.ini")));
    }
}

} // namespace
