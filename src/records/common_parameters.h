// What every parameter file of the suite begins with: a description, a link to details, and the version of
// the program that wrote the file, by which keys of older files are carried over to the places where they
// stand now.
#pragma once

#include "foundation/ustring.h"
#include "records/data_record.h"

#include <cstdint>

// How the folder of a record relates to the record's file.
enum class Directory_mode : std::uint8_t {
    file_folder = 0,       // the folder that holds the file
    own_folder = 1,        // the folder named as the file without its extension
    project_folder = 2,    // the same, of a project
    containing_folder = 3, // the folder that holds the file, whether the file is there or not
};

struct Record_version {
    std::uint8_t major;
    std::uint8_t release;
    std::uint8_t minor;

    // A number that grows with the version.
    constexpr std::int32_t number() const { return major * 65536 + release * 256 + minor; }
};

class Common_parameters {
public:
    Common_parameters(std::uint8_t type, Record_version version)
        : parameter_type(type), program_version(version) {}
    virtual ~Common_parameters() = default;

    virtual bool is_project_type() const { return parameter_type == 2 || parameter_type == 3; }

    // How the record's folder is found from its file.
    virtual Directory_mode get_directory_mode() const = 0;
    // What the record is, in one word: "project".
    virtual const char* get_kind() const { return ""; }
    // What kind of file the record is kept in, as users are told: "Tilverra project".
    virtual const char* get_type_description() const { return ""; }

    std::uint8_t parameter_type; // 1 for a scenario, 2 for a project
    TESK::Ustring description;
    TESK::Ustring details_URL;
    Record_version program_version; // what this program writes
    Record_version file_version{0, 0, 0};
};

// A key of older files and where its text belongs since a version.
struct Section_mapping {
    Record_version since;
    const char* old_section;
    const char* old_key;
    const char* new_section;
    const char* new_key;
};

class Common_parameters_data_record : public TESK::Data_record, public Common_parameters {
public:
    Common_parameters_data_record(std::uint8_t type, Record_version version, const char* primary_section)
        : Data_record(primary_section), Common_parameters(type, version) {}

    void expect_structure(bool for_write) override;
    // A file always states the version of the program that writes it.
    void prewrite() override { file_version = program_version; }
    // Carries over the keys that have moved since the file's version.
    void postread() override;

    Directory_mode get_directory_mode() const override { return static_cast<Directory_mode>(parameter_type); }

    // The keys that have moved, in the order in which they are carried over; null and 0 for none.
    virtual const Section_mapping* get_section_mapping(std::uint16_t& count) const;
    // Declares the description in the record's current section.
    virtual void expect_description(Data_record& record);
};
