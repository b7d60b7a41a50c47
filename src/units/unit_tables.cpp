#include "units/unit_tables.h"

#include <iterator>

// The characters of the tables that are no ASCII, in code page 1252.
#define DEG "\xB0"
#define SQUARED "\xB2"
#define CUBED "\xB3"
#define MICRO "\xB5"
#define ANGSTROM "\xC5"

namespace TESK::unit_tables {

namespace {

constexpr Quantity quantity_rows[quantity_count] = {
    {"unitless", "-", "-", false},                              // 0
    {"temperature", "celcius", DEG "C", true},                  // 1
    {"thermaldynamic temperature", "kelvin", "K", true},        // 2
    {"", "", "", false},                                        // 3
    {"chemical weight", "equivalent", "Eq", true},              // 4
    {"amount of substance", "mole", "mol", true},               // 5
    {"mass", "gram", "g", true},                                // 6
    {"liquid weight", "", "", true},                            // 7
    {"dry weight", "", "", true},                               // 8
    {"", "", "", false},                                        // 9
    {"", "", "", false},                                        // 10
    {"", "", "", false},                                        // 11
    {"luminous intensity", "candela", "cd", true},              // 12
    {"luminous flux", "lumen", "lm", true},                     // 13
    {"illuminance", "lux", "lx", true},                         // 14
    {"", "", "", false},                                        // 15
    {"temporal", "date/time", "date/time", false},              // 16
    {"week", "week", "wk", false},                              // 17
    {"month", "month", "mnth", false},                          // 18
    {"ordinal second", "ordinal second", "ordinal s", false},   // 19
    {"ordinal minute", "ordinal minute", "ordinal min", false}, // 20
    {"ordinal hour", "ordinal hour", "ordinal h", false},       // 21
    {"second", "second", "sec", true},                          // 22
    {"minute", "minute", "min", true},                          // 23
    {"hour", "hour", "h", true},                                // 24
    {"day", "day", "d", true},                                  // 25
    {"year", "year", "yr", true},                               // 26
    {"", "", "", false},                                        // 27
    {"", "", "", false},                                        // 28
    {"", "", "", false},                                        // 29
    {"", "", "", false},                                        // 30
    {"", "", "", false},                                        // 31
    {"linear", "meter", "m", true},                             // 32
    {"", "", "", false},                                        // 33
    {"", "", "", false},                                        // 34
    {"", "", "", false},                                        // 35
    {"", "", "", false},                                        // 36
    {"", "", "", false},                                        // 37
    {"", "", "", false},                                        // 38
    {"", "", "", false},                                        // 39
    {"rectangular area", "square meter", "m" SQUARED, true},    // 40
    {"", "", "", false},                                        // 41
    {"land area", "are", "a", true},                            // 42
    {"", "", "", false},                                        // 43
    {"", "", "", false},                                        // 44
    {"", "", "", false},                                        // 45
    {"", "", "", false},                                        // 46
    {"", "", "", false},                                        // 47
    {"volume", "cubic meter", "m" CUBED, true},                 // 48
    {"", "", "", false},                                        // 49
    {"", "", "", false},                                        // 50
    {"", "", "", false},                                        // 51
    {"liquid volume", "liter", "l", true},                      // 52
    {"dry measure", "dry", "", false},                          // 53
    {"", "", "", false},                                        // 54
    {"", "", "", false},                                        // 55
    {"", "", "", false},                                        // 56
    {"", "", "", false},                                        // 57
    {"", "", "", false},                                        // 58
    {"", "", "", false},                                        // 59
    {"", "", "", false},                                        // 60
    {"", "", "", false},                                        // 61
    {"", "", "", false},                                        // 62
    {"", "", "", false},                                        // 63
    {"plane angle", "radian", "rad", false},                    // 64
    {"solid angle", "steradian", "sr", false},                  // 65
    {"frequency", "hertz", "Hz", true},                         // 66
    {"", "", "", false},                                        // 67
    {"", "", "", false},                                        // 68
    {"", "", "", false},                                        // 69
    {"", "", "", false},                                        // 70
    {"", "", "", false},                                        // 71
    {"specific heat", "specific heat", "c", true},              // 72
    {"", "", "", false},                                        // 73
    {"", "", "", false},                                        // 74
    {"", "", "", false},                                        // 75
    {"energy", "joule", "J", true},                             // 76
    {"energy", "watt hour", "Whr", true},                       // 77
    {"energy", "watt day", "Wday", true},                       // 78
    {"heat", "heat", "Q", false},                               // 79
    {"force", "newton", "N", true},                             // 80
    {"", "", "", false},                                        // 81
    {"", "", "", false},                                        // 82
    {"", "", "", false},                                        // 83
    {"", "", "", false},                                        // 84
    {"radiant flux", "watt", "W", true},                        // 85
    {"", "", "", false},                                        // 86
    {"", "", "", false},                                        // 87
    {"pressure", "pascal", "P", true},                          // 88
    {"", "", "", false},                                        // 89
    {"", "", "", false},                                        // 90
    {"osmotic concentration", "osmol", "Osm", true},            // 91
    {"", "", "", false},                                        // 92
    {"", "", "", false},                                        // 93
    {"dynamic viscosity", "pascal-second", MICRO, true},        // 94
    {"kinematic viscosity", "kinematic viscosity", "v", true},  // 95
    {"", "", "", false},                                        // 96
    {"", "", "", false},                                        // 97
    {"", "", "", false},                                        // 98
    {"", "", "", false},                                        // 99
    {"", "", "", false},                                        // 100
    {"", "", "", false},                                        // 101
    {"", "", "", false},                                        // 102
    {"", "", "", false},                                        // 103
    {"", "", "", false},                                        // 104
    {"", "", "", false},                                        // 105
    {"", "", "", false},                                        // 106
    {"", "", "", false},                                        // 107
    {"", "", "", false},                                        // 108
    {"", "", "", false},                                        // 109
    {"", "", "", false},                                        // 110
    {"", "", "", false},                                        // 111
    {"electric current", "ampere", "A", true},                  // 112
    {"electric charge", "coulomb", "C", true},                  // 113
    {"electric flux", "coulomb", "C", true},                    // 114
    {"electric potential", "volt", "V", true},                  // 115
    {"", "", "", false},                                        // 116
    {"capacitance", "farad", "F", true},                        // 117
    {"electric resistance", "ohm", "O", true},                  // 118
    {"electric conductance", "siemens", "S", true},             // 119
    {"inductance", "henry", "H", true},                         // 120
    {"magnetic flux", "maxwell", "Mx", true},                   // 121
    {"magnetic flux density", "tesla", "T", true},              // 122
    {"", "", "", false},                                        // 123
    {"", "", "", false},                                        // 124
    {"radioactivity", "becquerel", "Bq", true},                 // 125
    {"absorbed dose", "gray", "Gy", true},                      // 126
    {"dose equivalent", "sievert", "Sv", true},                 // 127
};

constexpr Prefix positive_rows[prefix_count] = {
    {"", ""},       {"deca", "D"},  {"hecto", "h"}, {"kilo", "k"},  {"10^4?", "?"},
    {"10^5", "?"},  {"mega", "M"},  {"10^7", "?"},  {"10^8", "?"},  {"giga", "G"},
    {"10^10", "?"}, {"10^11", "?"}, {"tera", "T"},  {"10^13", "?"}, {"10^14", "?"},
    {"peta", "P"},  {"10^16", "?"}, {"10^17", "?"}, {"exa", "E"},   {"10^19", "?"},
    {"10^20", "?"}, {"zetta", "Z"}, {"10^22", "?"}, {"10^23", "?"}, {"yotta", "Y"},
};

// The row of 10^-16 says 10^-15, as it always has.
constexpr Prefix negative_rows[prefix_count] = {
    {"", ""},        {"deci", "d"},    {"centi", "c"},  {"milli", "m"},  {"10^-4", "?"},
    {"10^-5", "?"},  {"micro", MICRO}, {"10^-7", "?"},  {"10^-8", "?"},  {"nano", "n"},
    {"10^-10", "?"}, {"10^-11", "?"},  {"pico", "p"},   {"10^-13", "?"}, {"10^-14", "?"},
    {"femto", "f"},  {"10^-15", "?"},  {"10^-17", "?"}, {"atto", "a"},   {"10^-19", "?"},
    {"10^-20", "?"}, {"zepto", "z"},   {"10^-22", "?"}, {"10^-23", "?"}, {"yocto", "y"},
};

constexpr Unit plain_rows[] = {
    {0x0000, "unitless", "-"},
    {0x0001, "1", "1"},
    {0x0002, "count", "cnt"},
    {0x0003, "percent", "%"},
    {0x0004, "unit", "unit"},
    {0x0014, "decimal percent", "decprcnt"},
    {0x0015, "index", "ndx"},
    {0x0018, "fraction", "fract"},
    {0x0019, "probability", "prob"},
    {0x0020, "potential hydrogen", "pH"},
    {0x1000, "time", "time"},
    {0x1001, "date", "YYYYDDD"},
    {0x1040, "day of year", "DOY"},
    {0x1020, "day of month", "DOM"},
    {0x1900, "day", "d"},
    {0x1100, "week", "wk"},
    {0x1140, "fortnight", "fn"},
    {0x1200, "month", "mnth"},
    {0x1210, "quarter", "qrtr"},
    {0x1215, "trimester", "trmstr"},
    {0x1219, "biannum", "biannum"},
    {0x1A00, "year", "yr"},
    {0x1A01, "decade", "dcad"},
    {0x1A02, "century", "cntry"},
    {0x1A03, "millenium", "mllnm"},
    {0x204A, "angstrom", ANGSTROM},
    {0x4000, "radian", "rad"},
    {0x4001, "degrees", DEG},
    {0x4003, DEG "longitude", DEG},
    {0x4004, DEG "latitude", DEG},
    {0x4005, "degrees from east", DEG "E"},
    {0x4006, "degrees from north", DEG "N"},
    {0x7A44, "gauss", "G"},
    {0x1011, "Sunday", "Sun"},
    {0x1012, "Monday", "Mon"},
    {0x1013, "Tuesday", "Tue"},
    {0x1014, "Wednesday", "Wed"},
    {0x1015, "Thursday", "Thu"},
    {0x1016, "Friday", "Fri"},
    {0x1017, "Saturday", "Sat"},
    {0x1201, "January", "Jan"},
    {0x1202, "February", "Feb"},
    {0x1203, "March", "Mar"},
    {0x1204, "April", "Apr"},
    {0x1205, "May", "May"},
    {0x1206, "June", "Jun"},
    {0x1207, "July", "Jly"},
    {0x1208, "August", "Aug"},
    {0x1209, "September", "Spt"},
    {0x120A, "October", "Oct"},
    {0x120B, "November", "Nov"},
    {0x120C, "December", "Dec"},
};

// Several rows share a code: the first one is read, the first one behind the table's first row is written.
constexpr Unit english_rows[] = {
    {0x8100, "Farenheit", DEG "F"},
    {0x8200, "Rankine", DEG "R"},
    {0x8100, "Farenheit degree days", DEG "F-days"},
    {0x8600, "grain", "gr"},
    {0x8603, "dram", "dr"},
    {0x8604, "ounce", "oz"},
    {0x8606, "pound", "lb"},
    {0x8607, "clove", "clove"},
    {0x8608, "butchers stone", "bst"},
    {0x8609, "stone", "st"},
    {0x860A, "tod", "tod"},
    {0x860B, "quarter", "qtr"},
    {0x860C, "hundredweight(US)", "cwt(US)"},
    {0x860D, "sack", "sack"},
    {0x860E, "kip", "kip"},
    {0x860F, "ton(US)", "ton(US)"},
    {0x8662, "penny(tower)", "dwt(tower)"},
    {0x8665, "pound(tower)", "lb(tower)"},
    {0x8655, "pound(trade)", "lb(trade)"},
    {0x8659, "stone(trade)", "st(trade)"},
    {0x8611, "scruple(troy)", "sc(troy)"},
    {0x8612, "pennweight(troy)", "dwt(troy)"},
    {0x8613, "dram(troy)", "dr(troy)"},
    {0x8614, "ounce(troy)", "oz(troy)"},
    {0x8615, "pound(troy)", "lb(troy)"},
    {0x8625, "pound(wool)", "lb(wool)"},
    {0x8627, "clove(wool)", "clove(wool)"},
    {0x8629, "stone(wool)", "st(wool)"},
    {0x862A, "tod(wool)", "tod(wool)"},
    {0xA001, "inch", "in"},
    {0xA002, "nail", "nail"},
    {0xA003, "hand", "hand"},
    {0xA004, "link", "link"},
    {0xA005, "foot", "ft"},
    {0xA006, "yard", "yard"},
    {0xA007, "rod", "rod"},
    {0xA007, "pole", "pole"},
    {0xA007, "perch", "perch"},
    {0xA007, "lugg", "lugg"},
    {0xA008, "fathom", "fathom"},
    {0xA009, "chain", "chain"},
    {0xA00A, "furlong", "furlong"},
    {0xA00B, "statute mile", "mile"},
    {0xA00C, "nautical mile", "nmi"},
    {0xAA00, "acre", "acre"},
    {0xAA01, "rood", "rood"},
    {0xAA02, "arpent", "arpent"},
    {0xAA04, "virgante", "virgante"},
    {0xAA05, "hide", "hide"},
    {0xAA06, "morgen(Scandinavian)", "morgen(Sc)"},
    {0xAA07, "morgen(Prussian)", "morgen(Pr)"},
    {0xAA08, "morgen(Dutch)", "morgen(Du)"},
    {0xAA09, "morgen(South African)", "morgen(SA)"},
    {0xB408, "gallon(US CU)", "gallon(CU)"},
    {0xB448, "gallon(Imperial)", "gallon(Imp)"},
    {0xCC00, "calorie", "cal"},
    {0xCC00, "langley", "Ly"},
    {0xD000, "poundal", "pdl"},
    {0xB508, "dry gallon(US CU)", "dry gallon(CU)"},
    {0xB548, "dry gallon(Imperial)", "dry gallon(Imp)"},
    {0xB50A, "dry bushel(US CU)", "dry bushel(CU)"},
};

constexpr Compound compound_rows[] = {
    {0x18802003, "kph"},           {0x1880A00B, "mph"},
    {0x1880A00C, "knot"},          {0x06830641, "pph"},
    {0x06830600, "ppt"},           {0x06830643, "ppm"},
    {0x06830646, "ppb"},           {0x28C2CC00, "langley"},
    {0x28C2CC00, "Langley"},       {0x28804C00, "Wsec/m" SQUARED},
    {0x28804D00, "Whr/m" SQUARED}, {0x28804E00, "Wday/m" SQUARED},
    {0x00005802, "mbar"},
};

} // namespace

std::span<const Quantity, quantity_count> quantities() {
    return quantity_rows;
}

std::span<const Prefix, prefix_count> positive_prefixes() {
    return positive_rows;
}

std::span<const Prefix, prefix_count> negative_prefixes() {
    return negative_rows;
}

std::span<const Unit> plain_units() {
    return plain_rows;
}

std::span<const Unit> english_units() {
    return english_rows;
}

std::span<const Compound> compounds() {
    return compound_rows;
}

} // namespace TESK::unit_tables
