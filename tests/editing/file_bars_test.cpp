#include "editing/file_edit_bar.h"
#include "editing/record_folders.h"
#include "editing/sim_database_edit_bars.h"
#include "editing/view_file_button.h"
#include "names/typed_filenames.h"
#include "platform/file_writer.h"
#include "support/launcher_record.h"
#include "support/temporary_drives.h"
#include "support/test_desktop.h"

#include <cerrno>

using TESK::Directory_name;
using TESK::File_name;
using TESK::Smart_directory_name;
using TESK::Validation_status;

namespace {

class File_bars : public testing::Test {
protected:
    File_bars() {
        drives.write("a/wheat.crp");
        platform::change_directory("C:\\a");
        form.show();
        bar.bind_to(&crop);
    }
    template <class Edit>
    void type(Edit& edit, const std::string& text) {
        retype(edit, text);
        elsewhere.focus();
    }

    Temporary_drives drives;
    Launcher_record launcher;
    Test_desktop desktop;
    TForm form{"form"};
    TButton& elsewhere = form.add<TButton>("elsewhere", "elsewhere");
    CRP_filename crop{"C:\\a\\wheat.crp"};
    TAutoFileEditBar& bar = form.add<TAutoFileEditBar>("bar");
};

TEST_F(File_bars, the_caption_tells_the_kind_of_file_and_its_status) {
    EXPECT_EQ(bar.panel_caption.text(), "Tilverra Crop");
    EXPECT_EQ(bar.panel_caption.colour(), 0x33cc55);
    EXPECT_EQ(bar.panel_caption.hint(), "File is good.");
    EXPECT_FALSE(bar.help_button.visible() || bar.edit_button.visible() || bar.validate_button.visible());
    type(bar.filename_edit, "C:\\a\\gone.crp");
    EXPECT_EQ(crop, "C:\\a\\gone.crp");
    bar.Update();
    EXPECT_EQ(bar.panel_caption.hint(), "File status unavailable.");

    // A status of the record's own is shown as it is, whatever stands on the disk.
    Validation_status status = Validation_status::error;
    auto& judged = form.add<TAutoFileEditBar>("judged");
    judged.bind_to(&crop, "Crop", nullptr, &status);
    EXPECT_EQ(judged.panel_caption.text(), "Crop");
    EXPECT_EQ(judged.panel_caption.hint(), "File error, or contains invalid data.");
    status = Validation_status(77);
    judged.Update();
    EXPECT_EQ(judged.panel_caption.hint(), "File status unknown.");
    EXPECT_EQ(judged.panel_caption.colour(), 0xffaa1b);
}

TEST_F(File_bars, a_cleared_name_is_no_file_for_any_button) {
    const File_name program("C:\\S\\crop editor.exe");
    bar.set_edit_program(&program, "Edit");
    EXPECT_TRUE(bar.edit_button.click());
    EXPECT_EQ(launcher.started, "\"C:\\S\\crop editor.exe\" \"C:\\a\\wheat.crp\"  [1]\n");
    EXPECT_TRUE(bar.cancel_button.click());
    EXPECT_EQ(crop, "<Currently not selected>");
    EXPECT_EQ(bar.filename_edit.text(), "<Currently not selected>");
    launcher.started.clear();
    EXPECT_TRUE(bar.edit_button.click() && bar.qualify_button.click());
    EXPECT_EQ(crop, "<Currently not selected>");
    bar.set_edit_program(nullptr, nullptr);
    crop.set("C:\\a\\x\" C:\\secret");
    bar.Update();
    desktop.expect_message("Unable to start", "A name that holds a quotation mark or a control character "
                                              "cannot be handed to a program.");
    bar.edit_button_clicked();
    EXPECT_EQ(launcher.started, "");
}

TEST_F(File_bars, a_name_goes_from_absolute_to_relative_and_back) {
    for (const char* file : {"wheat.crp", "C:\\a\\wheat.crp"}) {
        EXPECT_TRUE(bar.qualify_button.click());
        EXPECT_EQ(crop, file);
        EXPECT_EQ(bar.filename_edit.text(), file);
    }
}

TEST_F(File_bars, the_requestor_offers_the_kinds_of_file_and_all_files) {
    int changes = 0;
    bar.on_after_change = [&] { ++changes; };
    desktop.expect_file_dialog("", {"C:\\b\\rye.crp"});
    EXPECT_TRUE(bar.filename_button.click());
    EXPECT_EQ(crop, "C:\\b\\rye.crp");
    EXPECT_EQ(bar.filename_edit.text(), "C:\\b\\rye.crp");
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(bar.file_requestor_dialog.filter, "Tilverra Crop(*.crp)|*.crp|All files (*.*)|*.*|");
    TFileDialog two;
    two.filter = "Tilverra scenario(*.tvn)|*.Tilverra_scenario|*.tvn|All files (*.*)|*.*|";
    two.default_extension = "tvn";
    const auto kinds = two.kinds();
    ASSERT_EQ(kinds.size(), 2U) << "several masks of one class are one kind";
    EXPECT_EQ(kinds[0].masks, (std::vector<std::string>{"*.tvn", "*.Tilverra_scenario"}));
    EXPECT_EQ(kinds[1].description, "All files (*.*)");
    EXPECT_EQ(bar.file_requestor_dialog.default_extension, "crp");
    EXPECT_EQ(bar.file_requestor_dialog.initial_folder, "C:\\a");
    bar.cancel_button_clicked();
    desktop.expect_file_dialog("", {});
    EXPECT_TRUE(bar.filename_button.click());
    EXPECT_EQ(crop, "<Currently not selected>");
    EXPECT_EQ(bar.file_requestor_dialog.file_name, "");
}

TEST_F(File_bars, a_name_is_a_change_however_it_comes) {
    int changes = 0;
    bar.on_after_change = [&] { ++changes; };
    EXPECT_TRUE(bar.drop_files({"C:\\a\\one.crp", "C:\\a\\two.crp"}));
    EXPECT_EQ(crop, "C:\\a\\two.crp") << "of several the last stands";
    EXPECT_EQ(bar.filename_edit.text(), "C:\\a\\two.crp");
    EXPECT_EQ(bar.panel_caption.hint(), "File status unavailable.");
    type(bar.filename_edit, "wheat.crp");
    EXPECT_EQ(crop, "C:\\a\\wheat.crp") << "a bare name lies where the file before it lay";
    EXPECT_EQ(bar.filename_edit.text(), "C:\\a\\wheat.crp");
    EXPECT_EQ(bar.panel_caption.hint(), "File is good.");
    bar.filename_edit.focus();
    elsewhere.focus();
    EXPECT_EQ(changes, 2) << "looking is none";
    EXPECT_TRUE(bar.cancel_button.click());
    EXPECT_EQ(changes, 3);
    EXPECT_EQ(bar.panel_caption.hint(), "File status unavailable.");
    type(bar.filename_edit, "..\\b\\rye.crp");
    EXPECT_EQ(crop, "..\\b\\rye.crp") << "a relative path is meant from the current folder";
}

class Database_bars : public File_bars {
protected:
    Database_bars() {
        bar.bind_to(&crop, "Crop", nullptr, nullptr, nullptr, &scenario, &project, &master,
                    Directory_name("C:\\Simulation\\Projects\\P\\Scenarios\\s"));
    }

    Smart_directory_name master{"C:\\Simulation\\Database\\Crop"};
    Smart_directory_name project{"C:\\Simulation\\Projects\\P\\Database\\Crop"};
    Smart_directory_name scenario{"C:\\Simulation\\Projects\\P\\Scenarios\\s\\Database\\Crop"};
    TAutoSimDatabaseFileEditBar& bar = form.add<TAutoSimDatabaseFileEditBar>("database_bar");
};

TEST_F(Database_bars, the_level_of_a_file_follows_from_its_path) {
    drives.write("Simulation/Projects/P/Database/Crop/there.crp");
    drives.write("Simulation/Projects/P/Scenarios/s/there.crp");
    drives.write("Simulation/Projects/P/Simulation/Database/there.crp");
    const std::pair<const char*, int> cases[] = {
        {"C:\\a\\wheat.crp", 0},
        {"C:\\Simulation\\Database\\Crop\\gone.crp", 1},
        {"C:\\Simulation\\Projects\\P\\Database\\Crop\\there.crp", 2},
        {"C:\\Simulation\\Projects\\P\\Database\\Crop\\gone.crp", 0},
        {"C:\\Simulation\\Projects\\P\\Simulation\\Database\\there.crp", 1},
        {"C:\\Simulation\\Projects\\P\\Scenarios\\s\\there.crp", 3},
    };
    for (const auto& [file, level] : cases) {
        crop.set(file);
        EXPECT_EQ(bar.level_of(crop), level) << file;
    }
}

TEST_F(Database_bars, the_list_shows_the_files_of_the_level_and_a_line_chooses_one) {
    drives.write("Simulation/Database/Crop/barley.crp");
    EXPECT_TRUE(bar.any_dir_note.visible());
    EXPECT_TRUE(bar.database_radiogroup.select(1));
    EXPECT_TRUE(bar.database_filelistbox.visible());
    EXPECT_EQ(bar.database_filelistbox.folder(), master);
    EXPECT_EQ(bar.database_filelistbox.mask(), "*.crp");
    bar.database_filelistbox.add_line("barley.crp");
    EXPECT_TRUE(bar.database_filelistbox.select(0));
    EXPECT_EQ(crop, "C:\\Simulation\\Database\\Crop\\barley.crp");
    EXPECT_TRUE(bar.database_radiogroup.select(2));
    EXPECT_FALSE(bar.database_filelistbox.visible());
    EXPECT_TRUE(bar.no_database_note.visible() && bar.any_dir_note.visible());
    EXPECT_TRUE(bar.file_editbar.drop_files({master + "\\barley.crp"}));
    EXPECT_EQ(bar.database_radiogroup.item_index(), 1) << "the level follows the file, however it came";
}

TEST_F(Database_bars, a_new_file_is_put_into_the_level_and_its_editor_started) {
    const File_name program("C:\\S\\crop_editor.exe");
    bar.file_editbar.set_edit_program(&program, "Edit");
    EXPECT_TRUE(bar.database_radiogroup.select(2));
    type(bar.file_editbar.filename_edit, "oats");
    EXPECT_TRUE(bar.edit_create_button.click());
    EXPECT_EQ(crop, "C:\\Simulation\\Projects\\P\\Database\\Crop\\oats.crp");
    EXPECT_TRUE(std::filesystem::exists(drives.host("Simulation/Projects/P/Database/Crop")));
    EXPECT_EQ(launcher.started, "\"C:\\S\\crop_editor.exe\" \"" + crop + "\"  [1]\n");

    auto& arbitrary = form.add<TAutoSimDatabaseFileEditBar>("arbitrary");
    CRP_filename bare("");
    bare.set("rye");
    arbitrary.bind_to(&bare, "Crop", nullptr, nullptr, nullptr, &scenario, &project, &master,
                      Directory_name(""));
    arbitrary.file_editbar.set_edit_program(&program, "Edit");
    launcher.started.clear();
    desktop.expect_message("Folder must be selected",
                           "Use the [Select] button to select a folder and filename for the file to be "
                           "created, then click [Edit/Create] again.");
    EXPECT_TRUE(arbitrary.edit_create_button.click());
    EXPECT_EQ(launcher.started, "\"C:\\S\\crop_editor.exe\" \"rye.crp\"  [1]\n");
}

TEST_F(Database_bars, a_missing_level_shifts_the_ones_behind_it) {
    bar.bind_to(&crop, "Crop", nullptr, nullptr, nullptr, &scenario, nullptr, &master, Directory_name(""));
    EXPECT_EQ(bar.database_radiogroup.items(), (std::vector<std::string>{"Arbitrary", "Master", "Scenario"}));
}

TEST_F(File_bars, a_list_shows_the_files_of_a_folder_that_fit_one_of_its_masks) {
    drives.write("s/b.TVN");
    drives.write("s/A.tvn");
    drives.write("s/c.Tilverra_scenario");
    drives.write("s/d.txt");
    drives.write("s/sub/e.tvn");
    drives.write("s/.hidden/f.tvn");
    Record_folders folders;
    std::string names;
    for (const Folder_entry& entry : folders.files("C:\\s", "*.Tilverra_scenario|*.tvn"))
        names += entry.name + " " + entry.path + "\n";
    EXPECT_EQ(names,
              "A.tvn C:\\s\\A.tvn\nb.TVN C:\\s\\b.TVN\nc.Tilverra_scenario C:\\s\\c.Tilverra_scenario\n");
    ASSERT_EQ(folders.folders("C:\\s").size(), 1U);
    EXPECT_EQ(folders.folders("C:\\s")[0].path, "C:\\s\\sub");
    EXPECT_TRUE(folders.files("C:\\gone", "*.*").empty());
    EXPECT_EQ(folders.failure(), "");

    // A disk that fails takes nothing away from the list.
    auto& list = form.add<TFileCheckListBox>("list");
    list.set_source(&folders);
    list.set_folder("C:\\s");
    list.set_checked(0, true);
    std::string told;
    form.on_notice = [&](const std::string& text, Mark) { told = text; };
    platform::File_faults faults;
    faults.fail(platform::Write_step::list, EIO);
    list.Update();
    EXPECT_EQ(told, "The folder cannot be read: C:\\s The disk has a fault.");
    EXPECT_TRUE(list.count() == 4 && list.checked(0));
    list.set_source(nullptr);
}

TEST_F(File_bars, the_gem_tells_whether_a_file_is_fresh) {
    TAutoGem gem("gem");
    TAutoViewFileButton& button = form.add<TAutoViewFileButton>("view", "View");
    const TESK::Date_time_64 past(1990001.0);
    const TESK::Date_time_64 future(2999001.0);
    const File_name gone("C:\\a\\gone.crp");
    const File_name program("C:\\S\\viewer.exe");
    button.bind_to(&crop, &past, &gem, &program);
    EXPECT_EQ(gem.gem_type(), Gem_type::Emerald);
    button.bind_to(&crop, &future, &gem, &program);
    EXPECT_EQ(gem.gem_type(), Gem_type::Topaz);
    button.bind_to(&gone, &past, &gem, &program);
    EXPECT_EQ(gem.gem_type(), Gem_type::Ruby);
    EXPECT_TRUE(button.click());
    EXPECT_EQ(launcher.started, "C:\\S\\viewer.exe \"C:\\a\\gone.crp\" [1]\n");
}

} // namespace
