#include "platform/host_names.h"

#include "platform/files.h"
#include "support/temporary_drives.h"

#include <gtest/gtest.h>

using namespace platform;
namespace fs = std::filesystem;

TEST(host_names, a_name_is_placed_on_its_drive) {
    Temporary_drives drives;
    drives.write("Simulation/Projects/maize.tvp");
    struct {
        const char* name;
        const char* path; // below c:
    } cases[] = {
        {"C:\\Simulation\\Projects\\maize.tvp", "Simulation/Projects/maize.tvp"},
        {"c:/Simulation/Projects\\\\maize.tvp", "Simulation/Projects/maize.tvp"},
        {"c:\\SIMULATION\\projects\\MAIZE.TVP", "Simulation/Projects/maize.tvp"},
        {"\\simulation\\New\\File", "Simulation/New/File"},
        {"new file", "new file"},
        {"c:x", "x"},
        {"C:", ""},
        {"C:\\", ""},
        {"c:\\a\\.\\b\\..\\c\\", "a/c"},
        {"c:\\..\\..\\a", "a"},
        {"..\\..\\etc", "etc"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(host_path(c.name), drives.host(c.path)) << c.name;
    EXPECT_EQ(host_path("z:\\"), "/");
    EXPECT_EQ(host_path("z:\\no\\such"), "/no/such");
}
