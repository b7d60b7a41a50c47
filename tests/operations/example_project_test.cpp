#include "operations/example_project.h"

#include "support/failing_step.h"
#include "support/temporary_drives.h"

#include <gtest/gtest.h>

TEST(Example_project_test, is_put_in_place_once_and_leaves_alone_what_is_there) {
    Temporary_drives drives;
    drives.write("shipped/Projects/Study.tvp", "project");
    drives.write("shipped/Projects/Study/Scenarios/base.tvn", "scenario");
    drives.write("shipped/Database/Crop/wheat.crp", "crop");
    const TESK::Directory_name shipped("C:\\shipped");
    const TESK::Directory_name simulation("C:\\Simulation");
    EXPECT_FALSE(Example_project(simulation, shipped).is_available());
    const Example_project example(shipped, simulation);
    ASSERT_TRUE(example.is_available());
    EXPECT_EQ(example.file(), "C:\\Simulation\\Projects\\Study.tvp");
    {
        const Full_disk full_disk;
        EXPECT_EQ(example.put_in_place().error, platform::Write_error::no_space);
        EXPECT_FALSE(std::filesystem::exists(drives.host("Simulation/Projects/Study.tvp")));
    }
    drives.write("Simulation/Database/Crop/wheat.crp", "mine");
    EXPECT_TRUE(example.put_in_place().ok());
    EXPECT_EQ(drives.read("Simulation/Projects/Study.tvp"), "project");
    EXPECT_EQ(drives.read("Simulation/Projects/Study/Scenarios/base.tvn"), "scenario");
    EXPECT_EQ(drives.read("Simulation/Database/Crop/wheat.crp"), "mine");
    drives.write("Simulation/Projects/Study.tvp", "edited");
    EXPECT_TRUE(example.put_in_place().ok());
    EXPECT_EQ(drives.read("Simulation/Projects/Study.tvp"), "edited");
}
