// Where the master simulation directory lies, under which the projects and the master database are. One
// object of it exists while the program runs.
#pragma once

#include "names/file_name.h"
#include "names/smart_directory_name.h"
#include "records/common_parameters.h"

#include <cstdint>
#include <memory>

// The master simulation directory itself.
class Simulation_paths : public TESK::Smart_directory_name {
public:
    class Master_simulation_parameters : public Common_parameters_data_record {
    public:
        Master_simulation_parameters(Record_version version, const char* application_name);
        void expect_structure(bool for_write) override;
        void postread() override;
        const char* get_type_description() const override { return "Tilverra Suite simulation paths"; }

        TESK::Directory_name master_simulation_directory{"C:\\Simulation"};
    };

    // Makes the object and reads its record: the file "<application_name>.ini" in the suite's folder or,
    // where nothing can be written there, in the user's own folder, once there is one. Without a file the
    // defaults stand. Never null.
    static std::unique_ptr<Simulation_paths> setup(std::uint8_t major, std::uint8_t release,
                                                   std::uint8_t minor, const char* application_name,
                                                   const TESK::Directory_name& suite_folder,
                                                   const TESK::Directory_name& user_folder);

    // Writes the record back; what other programs keep in the file stays. Failures are quiet.
    void save();

    Master_simulation_parameters parameters;
    TESK::Directory_name weather_directory{""};
    TESK::File_name station_list{"sodstn.txt"};
    TESK::File_name sorted_station_list{"globalSOD_stnlist-sorted.txt"};
    TESK::Directory_name second_weather_directory{""};
    TESK::File_name station_library{"UCAR ds512.0 stationlib.txt"};
    TESK::Directory_name third_weather_directory{""};
    TESK::File_name station_catalog{"StationCatOct20_99.dbf"};
    TESK::Smart_directory_name projects_directory{""};

private:
    Simulation_paths(Record_version version, const char* application_name);
    void set_paths();

    TESK::Smart_directory_name file_folder_{""}; // made when the record is written
    TESK::File_name file_;
};

// The one object; null before the start and after the end.
extern Simulation_paths* simulation_paths;
