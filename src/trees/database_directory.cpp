#include "trees/database_directory.h"

#include "trees/places.h"

namespace {

constexpr const char* folder_names[] = {"Crop",
                                        "Output",
                                        "Soil",
                                        "Weather",
                                        "Management",
                                        "Biomatter",
                                        "Rotation",
                                        "Format",
                                        "recalibration",
                                        "water_table",
                                        "initialization",
                                        "H2O",
                                        "NO3",
                                        "NH4",
                                        "OM",
                                        "STATSGO\\DOS\\arc\\data"};

} // namespace

Database_directory::Database_directory(const TESK::Directory_name& parent)
    : Smart_directory_name(folder_in(parent, "Database")) {}

const TESK::Smart_directory_name& Database_directory::get(Member member, bool create_folder) {
    static_assert(std::size(folder_names) == member_count);
    auto& folder = members_[member];
    if (folder == nullptr) {
        folder = std::make_unique<TESK::Smart_directory_name>(folder_in(*this, folder_names[member]));
        if (create_folder)
            folder->create();
    }
    return *folder;
}

const TESK::Smart_directory_name& Database_directory::get_STATSGO_data_directory(bool create_folder) {
    const TESK::Smart_directory_name& folder = get(STATSGO_data, false);
    if (create_folder)
        folder.create();
    return folder;
}
