// A database of parameter files, at the level of the suite, of a project or of a scenario: which level is a
// matter of the folder that it lies in.
#pragma once

#include "names/smart_directory_name.h"

#include <array>
#include <memory>

class Database_directory : public TESK::Smart_directory_name {
public:
    // The folder "Database" of the parent.
    explicit Database_directory(const TESK::Directory_name& parent);

    // The folder of one kind of file. It is made on the call that asks for it first, if that says `create`;
    // later calls do not make it.
    const TESK::Smart_directory_name& get_crop_directory(bool create) { return get(crop, create); }
    const TESK::Smart_directory_name& get_output_directory(bool create) { return get(output, create); }
    const TESK::Smart_directory_name& get_soil_directory(bool create) { return get(soil, create); }
    const TESK::Smart_directory_name& get_weather_directory(bool create) { return get(weather, create); }
    const TESK::Smart_directory_name& get_management_directory(bool create) {
        return get(management, create);
    }
    const TESK::Smart_directory_name& get_biomatter_directory(bool create) { return get(biomatter, create); }
    const TESK::Smart_directory_name& get_format_directory(bool create) { return get(format, create); }
    const TESK::Smart_directory_name& get_rotation_directory(bool create) { return get(rotation, create); }
    const TESK::Smart_directory_name& get_recalibration_directory(bool create) {
        return get(recalibration, create);
    }
    const TESK::Smart_directory_name& get_water_table_directory(bool create) {
        return get(water_table, create);
    }
    const TESK::Smart_directory_name& get_initialization_directory(bool create) {
        return get(initialization, create);
    }
    // This one is made on every call that says `create`.
    const TESK::Smart_directory_name& get_STATSGO_data_directory(bool create);

private:
    enum Member {
        crop,
        output,
        soil,
        weather,
        management,
        biomatter,
        rotation,
        format,
        recalibration,
        water_table,
        initialization,
        // The suite's other programs keep these four: nothing here asks for them.
        H2O,
        NO3,
        NH4,
        OM,
        STATSGO_data,
        member_count
    };
    const TESK::Smart_directory_name& get(Member member, bool create);

    std::array<std::unique_ptr<TESK::Smart_directory_name>, member_count> members_;
};
