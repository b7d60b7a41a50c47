#include "model/tally_tables.h"

#include <string_view>

namespace {

constexpr const char* date_format = "YYYY/Mmm/DD";
constexpr const char* text_format = "";
constexpr const char* whole_format = "######";
constexpr const char* one_decimal = "######.#";
constexpr const char* two_decimals = "######.##";
constexpr const char* three_decimals = "######.###";
constexpr const char* four_decimals = "######.####";

} // namespace

constexpr std::array<Tally_row, Tilverra_project::growing_season_variables> growing_season_tally_rows{{
    {"Crop", text_format, 0},
    {"Planting date", date_format, 101},
    {"Emergence date", date_format, 102},
    {"Bud break date", date_format, 103},
    {"Begin flowering date", date_format, 104},
    {"Begin fruit filling date", date_format, 105},
    {"Peak LAI date", date_format, 106},
    {"Physiological maturity date", date_format, 107},
    {"Harvest date", date_format, 108},
    {"Season begin date", date_format, 109},
    {"Season end date", date_format, 110},
    {"Growing season length", whole_format, 111},
    {"Thermal time to flowering", one_decimal, 112},
    {"Thermal time to maturity", one_decimal, 113},
    {"Growth stage at harvest", text_format, 0},
    {"Yield", three_decimals, 201},
    {"Yield dry matter", three_decimals, 202},
    {"Potential yield", three_decimals, 203},
    {"Harvest index", three_decimals, 204},
    {"Total (above ground) biomass production", three_decimals, 205},
    {"Root biomass production", three_decimals, 206},
    {"Biomass at flowering", three_decimals, 207},
    {"Biomass at maturity", three_decimals, 208},
    {"Biomass harvested", three_decimals, 209},
    {"Biomass consumed_by animals", three_decimals, 210},
    {"Biomass clipped", three_decimals, 211},
    {"Biomass burned", three_decimals, 212},
    {"Biomass returned to field", three_decimals, 213},
    {"Fruit biomass", three_decimals, 214},
    {"Bales removed", text_format, 0},
    {"Peak leaf area index", two_decimals, 221},
    {"Peak canopy cover", three_decimals, 222},
    {"Peak root depth", three_decimals, 223},
    {"Peak crop height", three_decimals, 224},
    {"Canopy_assimilation", four_decimals, 225},
    {"Maintenance respiration", four_decimals, 226},
    {"Growth respiration", four_decimals, 227},
    {"Radiation intercepted", two_decimals, 228},
    {"Precipitation", one_decimal, 301},
    {"Irrigation", one_decimal, 302},
    {"Number of irrigations", whole_format, 303},
    {"Snow fall", one_decimal, 304},
    {"Canopy interception", one_decimal, 305},
    {"Surface runoff", one_decimal, 306},
    {"Run-on", one_decimal, 307},
    {"Infiltration", one_decimal, 308},
    {"Drainage", one_decimal, 309},
    {"Subsurface lateral flow", one_decimal, 310},
    {"Subirrigation", one_decimal, 311},
    {"Potential evapotranspiration", one_decimal, 312},
    {"Actual evapotranspiration", one_decimal, 313},
    {"Potential transpiration", one_decimal, 314},
    {"Actual transpiration", one_decimal, 315},
    {"Soil evaporation", one_decimal, 316},
    {"Residue evaporation", one_decimal, 317},
    {"Profile water at planting", one_decimal, 318},
    {"Profile water at harvest", one_decimal, 319},
    {"Plant available water at planting", one_decimal, 320},
    {"Plant available water at harvest", one_decimal, 321},
    {"Water use efficiency", three_decimals, 322},
    {"Avg. water stress", three_decimals, 401},
    {"Avg. water stress vegetative", three_decimals, 402},
    {"Avg. water stress flowering", three_decimals, 403},
    {"Avg. water stress fruit filling", three_decimals, 404},
    {"Avg. nitrogen stress", three_decimals, 405},
    {"Avg. nitrogen stress vegetative", three_decimals, 406},
    {"Avg. nitrogen stress flowering", three_decimals, 407},
    {"Avg. nitrogen stress fruit filling", three_decimals, 408},
    {"Avg. temperature stress", three_decimals, 409},
    {"Avg. salinity stress", three_decimals, 410},
    {"Nitrogen uptake", two_decimals, 501},
    {"Nitrogen fixation", two_decimals, 502},
    {"Nitrogen applied inorganic", two_decimals, 503},
    {"Nitrogen applied organic", two_decimals, 504},
    {"Nitrogen in yield", two_decimals, 505},
    {"Nitrogen concentration of yield", four_decimals, 506},
    {"Nitrogen in crop residue", two_decimals, 507},
    {"Nitrogen leached", two_decimals, 508},
    {"Nitrogen mineralized", two_decimals, 509},
    {"Nitrogen denitrified", two_decimals, 510},
    {"Nitrogen volatilized", two_decimals, 511},
    {"Profile NO3 at planting", two_decimals, 512},
    {"Profile NO3 at harvest", two_decimals, 513},
    {"RUSLE cover factor", four_decimals, 601},
    {"RUSLE soil loss", three_decimals, 602},
    {"Sediment delivered", three_decimals, 603},
    {"Residue cover at planting", three_decimals, 604},
    {"CO2 emission residue", three_decimals, 701},
    {"CO2 emission soil organic matter", three_decimals, 702},
    {"Soil organic carbon change", three_decimals, 703},
}};

constexpr std::array<Tally_row, Tilverra_project::annual_variables> annual_tally_rows{{
    {"Year", whole_format, 1101},
    {"Precipitation", one_decimal, 1301},
    {"Irrigation", one_decimal, 1302},
    {"Snow fall", one_decimal, 1304},
    {"Surface runoff", one_decimal, 1306},
    {"Run-on", one_decimal, 1307},
    {"Infiltration", one_decimal, 1308},
    {"Drainage", one_decimal, 1309},
    {"Subsurface lateral flow", one_decimal, 1310},
    {"Potential evapotranspiration", one_decimal, 1312},
    {"Actual evapotranspiration", one_decimal, 1313},
    {"Actual transpiration", one_decimal, 1315},
    {"Soil evaporation", one_decimal, 1316},
    {"Profile water change", one_decimal, 1323},
    {"Number of crops harvested", whole_format, 1111},
    {"Crops of the year", text_format, 0},
    {"Yield", three_decimals, 1201},
    {"Biomass produced", three_decimals, 1205},
    {"Biomass harvested", three_decimals, 1209},
    {"Biomass grazed", three_decimals, 1210},
    {"Biomass burned", three_decimals, 1212},
    {"Residue (all) surface current", three_decimals, 1621},
    {"Residue (all) incorporated current", three_decimals, 1622},
    {"Residue (all) standing current", three_decimals, 1623},
    {"Residue cover", three_decimals, 1604},
    {"Manure surface current", three_decimals, 1624},
    {"Manure incorporated current", three_decimals, 1625},
    {"Nitrogen applied inorganic", two_decimals, 1503},
    {"Nitrogen applied organic", two_decimals, 1504},
    {"Nitrogen fixation", two_decimals, 1502},
    {"Nitrogen uptake", two_decimals, 1501},
    {"Nitrogen mineralized", two_decimals, 1509},
    {"Nitrogen denitrified", two_decimals, 1510},
    {"Nitrogen volatilized", two_decimals, 1511},
    {"Nitrogen leached", two_decimals, 1508},
    {"Profile NO3 current", two_decimals, 1514},
    {"RUSLE soil loss", three_decimals, 1602},
    {"Wind erosion soil loss", text_format, 0},
    {"Sediment delivered", three_decimals, 1603},
    {"CO2 emission residue", three_decimals, 1701},
    {"CO2 emission soil organic matter", three_decimals, 1702},
    {"Soil organic carbon current", three_decimals, 1704},
}};

const char* get_growing_season_tally_line(std::size_t row) {
    const Tally_row& variable = growing_season_tally_rows[row];
    const bool is_talliable =
        variable.code != 0 && std::string_view(variable.format) != std::string_view(date_format);
    return is_talliable ? variable.label : not_talliable;
}

const char* get_annual_tally_line(std::size_t row) {
    const Tally_row& variable = annual_tally_rows[row];
    return variable.code != 0 ? variable.label : not_talliable;
}
