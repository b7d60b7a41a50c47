#include "editing/remembered_screens.h"

#include "support/temporary_drives.h"
#include "toolkit/form.h"
#include "toolkit/headless_desktop.h"
#include "toolkit/splitter.h"

#include <gtest/gtest.h>

TEST(Remembered_screens_test, what_a_user_arranged_is_there_again_and_programs_keep_the_rest_of_one_another) {
    const Temporary_drives drives;
    const Environment_guard config{"XDG_CONFIG_HOME", drives.host("L")};
    const TESK::Application_data_directory directory{TESK::File_name("C:\\Suite\\Tilverra\\editor.exe")};
    Headless_desktop desktop([](const std::string& fault) { ADD_FAILURE() << fault; });
    const auto position_in_new_form = [](int moved_to) {
        TForm form("form");
        auto& splitter = form.add<TSplitter>("lists_splitter");
        keep_position(splitter, 550);
        form.show();
        if (moved_to >= 0)
            splitter.move(moved_to);
        return splitter.position();
    };
    EXPECT_EQ(position_in_new_form(300), 300) << "without a memory, too";
    {
        Remembered_screens mine(directory);
        EXPECT_EQ(position_in_new_form(-1), 550);
        position_in_new_form(420);
        EXPECT_EQ(position_in_new_form(-1), 420);
        Remembered_screens other(directory);
        other.remember("runs_table", "name=24 state=10;sort=-state");
    }
    const Remembered_screens again(directory);
    EXPECT_EQ(position_in_new_form(-1), 420);
    EXPECT_EQ(again.recall("runs_table"), "name=24 state=10;sort=-state");
    EXPECT_EQ(again.recall("never"), "");
    drives.write("L/Tilverra/editor.ini", "[screens]\r\nlists_splitter=-7 wide\r\n");
    EXPECT_EQ(position_in_new_form(-1), 0) << "a damaged one is some place of the bar's";
}
