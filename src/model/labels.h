// The form of the model's labelled enumerations, and those that several records use.
#pragma once

#include "foundation/labeled_enum.h"

#include <cstdint>

// A labelled enumeration with a table of its own. The table ends at a null, or at a pair of nulls where the
// words have descriptions. `Value` is what the values are called in the code, where it needs to name them.
template <const auto& labels, class Value = std::uint8_t>
class Labeled : public Byte_labeled_enum {
public:
    Labeled(Value value = Value{}) : Byte_labeled_enum(labels, static_cast<std::uint8_t>(value)) {}
    Value get() const { return static_cast<Value>(get_int32()); }
    friend bool operator==(const Labeled& a, const Labeled& b) { return a.get() == b.get(); }
};

// What becomes of an operation that cannot be done on its day.
enum class Contingency : std::uint8_t { none, postpone, not_viable, abort };
inline constexpr const char* contingency_labels[] = {"none", "postpone", "not_viable", "abort", nullptr};
using Contingency_labeled = Labeled<contingency_labels, Contingency>;

// Where a database of parameter files lies.
enum class Database_location_mode : std::uint8_t { anywhere, master, project, scenario };
inline constexpr const char* database_location_mode_labels[] = {"ANYWHERE", "MASTER", "PROJECT", "SCENARIO",
                                                                nullptr};
using Database_location_mode_labeled = Labeled<database_location_mode_labels, Database_location_mode>;

// Which family of scenarios a project holds.
enum class Tilverra_project_type : std::uint8_t { tilverra, gis, watershed, grazing, morka };
inline constexpr const char* tilverra_project_type_labels[] = {"Tilverra", "GIS",   "Watershed",
                                                               "Grazing",  "Morka", nullptr};
using Tilverra_project_type_labeled = Labeled<tilverra_project_type_labels, Tilverra_project_type>;
