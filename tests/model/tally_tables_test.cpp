#include "model/tally_tables.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

TEST(Tally_tables_test, dates_and_what_is_never_reported_cannot_be_tallied) {
    std::set<std::string> of_season, of_year;
    for (std::size_t row = 0; row < growing_season_tally_rows.size(); ++row)
        of_season.insert(get_growing_season_tally_line(row));
    for (std::size_t row = 0; row < annual_tally_rows.size(); ++row)
        of_year.insert(get_annual_tally_line(row));
    for (const char* label : {"RUSLE cover factor", "Nitrogen uptake", "<This variable is not talliable>"})
        EXPECT_TRUE(of_season.contains(label)) << label;
    for (const char* label : {"Planting date", "Bud break date", "Crop"})
        EXPECT_FALSE(of_season.contains(label)) << label;
    for (const char* label : {"Year", "Biomass grazed", "<This variable is not talliable>"})
        EXPECT_TRUE(of_year.contains(label)) << label;
    EXPECT_FALSE(of_year.contains("Crops of the year"));
}
