#include "model/tally_tables.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace {

constexpr const char* not_talliable = "<This variable is not talliable>";

template <std::size_t count>
std::size_t row_of(const std::array<Tally_row, count>& rows, const std::string& label) {
    const auto row =
        std::find_if(rows.begin(), rows.end(), [&](const Tally_row& r) { return r.label == label; });
    EXPECT_NE(row, rows.end()) << label;
    return static_cast<std::size_t>(row - rows.begin());
}

TEST(Tally_tables_test, dates_and_what_is_never_reported_cannot_be_tallied) {
    for (const char* label : {"Planting date", "Bud break date", "Crop"})
        EXPECT_STREQ(get_growing_season_tally_line(row_of(growing_season_tally_rows, label)), not_talliable);
    for (const char* label : {"RUSLE cover factor", "Nitrogen uptake", "Canopy_assimilation"})
        EXPECT_STREQ(get_growing_season_tally_line(row_of(growing_season_tally_rows, label)), label);
    EXPECT_STREQ(get_annual_tally_line(row_of(annual_tally_rows, "Crops of the year")), not_talliable);
    for (const char* label : {"Year", "Biomass grazed"})
        EXPECT_STREQ(get_annual_tally_line(row_of(annual_tally_rows, label)), label);
}

} // namespace
