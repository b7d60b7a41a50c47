// The names of the suite's parameter files, one class for each kind of file. Each constructor completes the
// name of a file that is not there with the extension of its kind.
#pragma once

#include "names/filtered_file_name.h"

class TVP_filename : public TESK::Filtered_file_name {
public:
    explicit TVP_filename(const char* name) : Filtered_file_name(name, "tvp", "Tilverra project", "*.tvp") {}
    using Filtered_file_name::operator=;
};

class TVN_filename : public TESK::Filtered_file_name {
public:
    explicit TVN_filename(const char* name)
        : Filtered_file_name(name, "tvn", "Tilverra scenario", "*.Tilverra_scenario|*.tvn") {}
    using Filtered_file_name::operator=;
};

class CRP_filename : public TESK::Filtered_file_name {
public:
    explicit CRP_filename(const char* name) : Filtered_file_name(name, "crp", "Tilverra Crop", "*.crp") {}
    using Filtered_file_name::operator=;
};

class SIL_filename : public TESK::Filtered_file_name {
public:
    explicit SIL_filename(const char* name) : Filtered_file_name(name, "sil", "Tilverra Soil", "*.sil") {}
    using Filtered_file_name::operator=;
};

class LOC_filename : public TESK::Filtered_file_name {
public:
    explicit LOC_filename(const char* name) : Filtered_file_name(name, "loc", "Location", "*.loc") {}
    using Filtered_file_name::operator=;
};

class ROT_filename : public TESK::Filtered_file_name {
public:
    explicit ROT_filename(const char* name)
        : Filtered_file_name(name, "rot", "Tilverra Cropping system (rotation)", "*.rot") {}
    using Filtered_file_name::operator=;
};

class MGT_filename : public TESK::Filtered_file_name {
public:
    explicit MGT_filename(const char* name)
        : Filtered_file_name(name, "mgt", "Tilverra Management", "*.mgt") {}
    using Filtered_file_name::operator=;
};

class WTB_filename : public TESK::Filtered_file_name {
public:
    explicit WTB_filename(const char* name)
        : Filtered_file_name(name, "wtb", "Tilverra Water table", "*.wtb") {}
    using Filtered_file_name::operator=;
};

class FMT_filename : public TESK::Filtered_file_name {
public:
    explicit FMT_filename(const char* name) : Filtered_file_name(name, "FMT", "Report format", "*.FMT") {}
    using Filtered_file_name::operator=;
};

class PAT_filename : public TESK::Filtered_file_name {
public:
    explicit PAT_filename(const char* name)
        : Filtered_file_name(name, "DBF", "Polygon attribute table", "*.DBF") {}
    using Filtered_file_name::operator=;
};

class OP_filename : public TESK::Filtered_file_name {
public:
    explicit OP_filename(const char* name = "noname")
        : Filtered_file_name(name, "op", "Operation file", "*.op") {}
    using Filtered_file_name::operator=;
};

class XEB_File_name : public TESK::Filtered_file_name {
public:
    explicit XEB_File_name(const char* name) : Filtered_file_name(name, "XEB", "Database", "*.XEB") {}
    using Filtered_file_name::operator=;
};

class Biomass_decomposition_parameters_filename : public TESK::Filtered_file_name {
public:
    explicit Biomass_decomposition_parameters_filename(const char* name)
        : Filtered_file_name(name, "TVS_biomatter", "Tilverra Biomatter", "*.TVS_biomatter") {}
    using Filtered_file_name::operator=;
};
