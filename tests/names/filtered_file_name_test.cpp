#include "names/filtered_file_name.h"

#include "names/typed_filenames.h"
#include "support/temporary_drives.h"

#include <gtest/gtest.h>

using namespace TESK;

TEST(Filtered_file_name, a_name_of_no_file_gets_the_extension) {
    const Temporary_drives drives;
    drives.write("wheat.old");
    drives.write("help.htm");
    const char* cases[][3] = {{"wheat", "crp", "wheat.crp"},
                              {"barley.old", "crp", "barley.crp"},
                              {"C:\\wheat.OLD", "crp", "C:\\wheat.OLD"},
                              {"help.htm#topic", "crp", "help.htm#topic"},
                              {"", "crp", ""},
                              {nullptr, "crp", ""},
                              {"<Currently not selected>", "crp", "<Currently not selected>"},
                              {"barley.x", nullptr, "barley.x"},
                              {"barley", nullptr, "barley"},
                              {"barley.x", "", "barley"}};
    for (const auto& [name, extension, result] : cases)
        EXPECT_EQ(Filtered_file_name(name, extension), result) << (name ? name : "null");
    EXPECT_EQ(OP_filename(), "noname.op");
    EXPECT_EQ(TVN_filename("x.tvp"), "x.tvn");
}

TEST(Filtered_file_name, the_file_types_give_the_defaults) {
    std::string out;
    const Filtered_file_name none("a.b");
    EXPECT_EQ(none.get_default_extension(out), "*");
    EXPECT_EQ(none.get_default_description(out), "*");
    EXPECT_EQ(none.get_default_filter(out), "*");
    EXPECT_EQ(none.get_dialog_filter(out), "");

    Filtered_file_name name("", "rcl", "Recalibration");
    EXPECT_EQ(name.get_default_extension(out), "rcl");
    EXPECT_EQ(name.get_default_description(out), "Recalibration");
    EXPECT_EQ(name.get_default_filter(out), "*.rcl");
    name.add_file_type("crp", "Crop", "*.crp|*.c");
    EXPECT_EQ(name.get_dialog_filter(out), "Recalibration(*.rcl)|*.rclCrop(*.crp)|*.crp|*.c");
    EXPECT_EQ(Filtered_file_name("a.b", nullptr, nullptr, "*.q").get_dialog_filter(out), "(*.b)|*.q");

    File_name& plain = name;
    plain.set("x.y");
    plain.set_ext(nullptr);
    EXPECT_EQ(plain, "x.rcl");
}

TEST(Filtered_file_name, a_copy_has_types_of_its_own) {
    std::string out;
    auto crop = std::make_unique<CRP_filename>("wheat");
    CRP_filename copy = *crop;
    Filtered_file_name other("a");
    other = *crop;
    crop.reset();
    EXPECT_EQ(copy, "wheat.crp");
    EXPECT_EQ(copy.get_dialog_filter(out), "Tilverra Crop(*.crp)|*.crp");
    EXPECT_EQ(other.get_dialog_filter(out), "Tilverra Crop(*.crp)|*.crp");

    copy = "x\\y.z";
    copy = Smart_file_name("v.w");
    EXPECT_EQ(copy.get_ext(), ".w");
    EXPECT_EQ(copy.get_default_extension(out), "crp");
    copy = *&copy;
    EXPECT_EQ(copy.get_default_extension(out), "crp");
}
