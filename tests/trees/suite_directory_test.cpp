#include "trees/suite_directory.h"

#include "support/temporary_drives.h"

#include <gtest/gtest.h>

using TESK::Documentation_directory;
using TESK::Documentation_topic;
using TESK::File_name;
using TVS::Suite_Directory;

namespace {

class Suite_directory_test : public testing::Test {
protected:
    Suite_directory_test() {
        drives.write("Suite/Tilverra/project_editor.exe");
        drives.write("other/readme.txt");
        platform::change_directory("C:\\other");
    }

    Temporary_drives drives;
};

TEST_F(Suite_directory_test, the_root_is_found_upward_from_the_program) {
    drives.write("Suite/XEB/spatial/deep/tool.exe");
    drives.write("second/Skymill/readme.txt");
    drives.write("second/bin/tool.exe");
    std::filesystem::create_directories(drives.host("Suite/bin"));
    std::filesystem::create_symlink(drives.host("other/tool.exe"), drives.host("Suite/bin/linked.exe"));
    // the program, the current directory, the root, whether it is one
    const std::tuple<const char*, const char*, const char*, bool> cases[] = {
        {"C:\\Suite\\Tilverra\\project_editor.exe", "C:\\other", "C:\\Suite", true},
        {"C:\\Suite\\XEB\\spatial\\deep\\tool.exe", "C:\\other", "C:\\Suite", true},
        {"C:\\Suite\\TVS_suite.exe", "C:\\other", "C:\\Suite", true},
        {"C:\\Suite\\bin\\linked.exe", "C:\\other", "C:\\Suite", true}, // where the link lies
        {"C:\\second\\bin\\tool.exe", "C:\\other", "C:\\second", true},
        {"C:\\Suite\\Tilverra\\project_editor.exe", "C:\\", "C:\\", false},
        {"project_editor.exe", "C:\\other", "C:\\other", false},
        {"C:\\other\\tool.exe", "C:\\Suite", "C:", false}};
    for (const auto& [program, current, root, found] : cases) {
        platform::change_directory(current);
        Suite_Directory suite{File_name(program)};
        EXPECT_EQ(suite, root) << program;
        EXPECT_EQ(suite.is_suite_root(), found) << program;
        EXPECT_EQ(suite.started_from, program);
    }
}

TEST_F(Suite_directory_test, every_program_has_its_place_below_the_root) {
    Suite_Directory suite(File_name("C:\\Suite\\Tilverra\\project_editor.exe"));
    TVS::Tilverra_Directory& tilverra = suite.get_tilverra_directory();
    EXPECT_EQ(suite.get_common_directory(), "C:\\Suite\\common");
    TESK::Smart_file_name icon;
    EXPECT_EQ(suite.get_icon_filename("wmp.ico", icon), "C:\\Suite\\Icons\\wmp.ico");

    EXPECT_EQ(tilverra.get_model_exe(), "C:\\Suite\\Tilverra\\tilverra_4.exe");
    drives.write("Suite/Tilverra/tilverra_5.exe");
    EXPECT_EQ(tilverra.get_model_exe(), "C:\\Suite\\Tilverra\\tilverra_4.exe");
    EXPECT_EQ(TVS::Tilverra_Directory(TESK::Directory_name(tilverra)).get_model_exe(),
              "C:\\Suite\\Tilverra\\tilverra_5.exe");
}

TEST_F(Suite_directory_test, a_page_is_the_file_of_its_topic_or_the_index_of_its_folder) {
    const std::string folder = "Suite/Tilverra/project_editor/";
    drives.write(folder + "manual.pdf");
    drives.write(folder + "HELP.htm");
    drives.write(folder + "tutorial/index.html");
    drives.write(folder + "tutorial/index.htm");
    drives.write(folder + "FAQ/index.htm");
    TESK::Program_directory program(File_name("C:\\Suite\\Tilverra\\project_editor.exe"));
    Documentation_directory& pages = program.documentation;
    const std::string name = "C:\\Suite\\Tilverra\\project_editor\\";
    EXPECT_EQ(pages.get_page(Documentation_topic::manual), name + "manual.pdf");
    EXPECT_EQ(pages.get_page(Documentation_topic::tutorial), name + "tutorial\\index.html");
    EXPECT_EQ(pages.get_page(Documentation_topic::faq), name + "FAQ\\index.htm");
    EXPECT_EQ(pages.get_page(Documentation_topic::help), name + "help.htm");
    EXPECT_EQ(pages.get_directory(Documentation_topic::history), name + "history");

    drives.write(folder + "help/index.html");
    EXPECT_EQ(pages.get_page(Documentation_topic::help), name + "help.htm");
    pages.reset();
    EXPECT_EQ(pages.get_page(Documentation_topic::help), name + "help\\index.html");
}

TEST_F(Suite_directory_test, documentation_moves_to_the_web_with_the_root_that_it_is_below) {
    Documentation_directory pages(File_name("C:\\Suite\\Tilverra\\project_editor.exe"));
    pages.rebase_to_URL("http://example.org/TVS_suite", "C:\\elsewhere");
    EXPECT_EQ(pages, "C:\\Suite\\Tilverra\\project_editor");
    pages.rebase_to_URL(suite_web_address().c_str(), "c:\\suite");
    EXPECT_EQ(pages, "http://example.org/TVS_suite/Tilverra/project_editor");
    EXPECT_EQ(pages.get_page(Documentation_topic::help),
              "http://example.org/TVS_suite/Tilverra/project_editor\\help.htm");
}

TEST_F(Suite_directory_test, a_program_without_a_folder_has_its_documentation_beside_it) {
    TESK::Program_directory program(File_name("C:\\Suite\\Tilverra\\project_editor.exe"), true);
    EXPECT_EQ(program.documentation, "C:\\Suite\\Tilverra");
    EXPECT_EQ(program.default_ini, "C:\\Suite\\Tilverra\\project_editor\\default.ini");
    EXPECT_EQ(TESK::Adjunct_directory(File_name("C:\\v1.2\\editor")), "C:\\v1.2\\editor");
    EXPECT_EQ(TESK::Adjunct_directory(TESK::Directory_name("C:\\v1.2\\editor")).program_file,
              "C:\\v1.2\\editor.exe");
    EXPECT_EQ(program.get_application(), "C:\\Suite\\Tilverra");
    EXPECT_EQ(program.get_suite(), "C:\\Suite");
    drives.write("Suite/Tilverra/project_editor/default.ini.txt");
    EXPECT_TRUE(program.find_default_ini());
    EXPECT_EQ(program.default_ini, "C:\\Suite\\Tilverra\\project_editor\\default.ini.txt");
}

} // namespace
