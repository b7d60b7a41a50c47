// The project record: the file at the top of a project's folder.
#pragma once

#include "model/labels.h"
#include "names/typed_filenames.h"
#include "records/common_parameters.h"

#include <array>
#include <cstdint>

// What the projects of every model of the suite have.
class Common_project_parameters : public Common_parameters_data_record {
public:
    Common_project_parameters();
    void expect_structure(bool for_write) override;

    TVN_filename active_scenario; // relative to the project's folder, unless it is absolute
};

class Tilverra_project : public Common_project_parameters {
public:
    static constexpr int growing_season_variables = 90;
    static constexpr int annual_variables = 42;

    Tilverra_project();
    void expect_structure(bool for_write) override;
    const char* get_kind() const override { return "project"; }
    const char* get_type_description() const override { return "Tilverra project"; }

    // One word of chosen statistics for each output variable of the model. A file has one key more for each
    // list than there are variables: the last one of the growing season is the first one of the year, and the
    // last one of the year a word of its own that nothing else uses. So the lists lie behind one another,
    // with room for that word.
    std::uint32_t* growing_season_statistics() { return statistics_words_.data(); }
    std::uint32_t* annual_statistics() { return statistics_words_.data() + growing_season_variables; }

    Tilverra_project_type_labeled project_type;
    TESK::Ustring STATSGO_path = "\\Simulation\\Database\\STATSGO";
    FMT_filename report_format{"default"};
    bool statistical_analysis = false;

private:
    std::array<std::uint32_t, growing_season_variables + annual_variables + 1> statistics_words_{};
};
