// What would make a run fail or mislead, and what lists show of scenarios.
#include "operations/project_check.h"

#include "operations/scenario_overview.h"
#include "records/vv_file.h"
#include "support/temporary_drives.h"
#include "trees/suite_directory.h"

#include <gtest/gtest.h>

namespace {

class Project_check_test : public testing::Test {
protected:
    Project_check_test() {
        for (const char* file : {"a.sil", "a.loc", "a.XEB", "a.rot"})
            drives.write(file);
    }
    // The findings of a scenario that lacks nothing but has these lines, one a line: its weight, place and
    // message.
    std::string findings_of(const std::string& lines) {
        drives.write("s.tvn", "[version]\nmajor=4\nrelease=14\nminor=4\n[parameter_filenames]\nsoil=a.sil\n"
                              "location=a.loc\nweather_database=a.XEB\n" +
                                  lines);
        return told(check.check_scenario(TESK::File_name("C:\\s.tvn")));
    }
    static std::string told(const std::vector<Finding>& findings) {
        std::string text;
        for (const Finding& one : findings)
            text += (one.weight == Finding_weight::error ? "E " : "W ") + one.section + '.' + one.key + ' ' +
                    one.message + '\n';
        return text;
    }
    Temporary_drives drives;
    Project_check check;
};

TEST_F(Project_check_test, each_fault_of_a_scenario_is_found_and_nothing_else) {
    const std::pair<const char*, const char*> cases[] = {
        // Lines, and what is found.
        {"", ""},
        {"soil=<Required (This must be selected)>\n",
         "E parameter_filenames.soil A file is required and none is chosen.\n"},
        {"rotation=no.rot\nrecalibration=C:\\no\\x.rcl\nwater_table=<none>\n",
         "E parameter_filenames.rotation The file no.rot is not there.\n"
         "E parameter_filenames.recalibration The file C:\\no\\x.rcl is not there.\n"},
        {"[cropping_system]\nrotation=A.ROT\n", ""}, // by any case, as everywhere
        {"[field]\nsize=30 acre\n",
         "W field.size The number is read in ha, and \"acre\" stands behind it.\n"},
        {"[field]\nsize=30.0000000000  ha\n", ""},
        {"[cropping_system]\ncropping_mode=single\n",
         "E cropping_system.crop A file is required and none is chosen.\n"},
        {"[weather]\ntemperature_avg=50\ntemperature_phase=0\n[incorporated_residue]\nN_conc=0.04 x\n",
         "W incorporated_residue.N_conc The value 0.0400 kgN/kgDM should range from 0.0050 - 0.0300.\n"
         "E weather.temperature_avg The value 50.00 \260C must be less than 45.00.\n"},
        {"[salt]\n3=60\nECe_to_TDS=high\n",
         "E salt.ECe_to_TDS The value \"high\" must be a number such as 12 or "
         "0.25, and is read as 0.\nE salt.3 The value 60.000 dS/m must be less than 50.000.\n"},
        // What the type cannot take; the later of two lines counts, and behind a number may stand a note.
        {"[simulation]\nstarting_date=1996-05-02\nending_date=hello\nending_date=1996123 (2 May 1996)\n"
         "[submodels]\nsalinity=yes\n[cropping_system]\ncropping_mode=Rotation \n[salt]\n1=1e-3\n"
         "[scenario]\nevent:count=7.5\n",
         "E scenario.event:count The value \"7.5\" must be a whole number from -32768 to 32767, and is read "
         "as "
         "7.\n"
         "E cropping_system.cropping_mode The value \"Rotation \" must be one of: none, single, rotation, "
         "established, and is read as none.\n"
         "E simulation.starting_date The value \"1996-05-02\" must be the number of a date such as 1996123, "
         "or "
         "0 for none, and is read as 1996.\n"
         "E submodels.salinity The value \"yes\" must be true or false, and is read as false.\n"
         "W scenario.event:count 7 events are counted and 0 are there: the others are events with nothing "
         "chosen.\n"},
        {"water_table=C:\\\n", "E parameter_filenames.water_table A file is meant, and C:\\ is a folder.\n"},
        {"[simulation]\nstarting_date=2001001\nending_date=2000366\n",
         "E simulation.ending_date The simulation ends before it begins.\n"},
        {"[scenario]\nevent:count=1\n[event:1]\nbegin_synchronization=actual_date\nbegin_date=1996200\n"
         "end_synchronization=actual_date\nend_date=1996100\nrepeat_event=true\n",
         "E event:1.end_date The event's period ends before it begins.\n"},
        {"[scenario]\nevent:count=2\n[event:1]\nID=a\noperation_filename=gone.op\n",
         "E event:1.operation_filename The file gone.op is not there.\n"
         "W scenario.event:count 2 events are counted and 1 are there: the others are events with nothing "
         "chosen.\n"},
        {"[event_1]\nID=a\n[event_2]\nID=b\n[scenario]\nevent_count=2\n",
         "E scenario.event:count Events in the old spelling, or more than are counted, which no program of "
         "the suite reads: 2.\n"},
        {"[weather_tool]\nseed=1\n[empty]\n[initialize]\nsurface_residue=1\n",
         "W weather_tool. No program of the suite is known to read this section.\n"},
    };
    // Without a suite, any section may be one of its programs'.
    EXPECT_EQ(findings_of(std::end(cases)[-1].first), "");
    drives.write("Suite/Tilverra/tilverra_5.exe");
    TVS::Suite_Directory suite(TESK::File_name("C:\\Suite\\Tilverra\\project_editor.exe"));
    suite.set("C:\\Suite"); // it is not looked for from the root of a drive
    suite.reset();
    suite_directory = &suite;
    for (const auto& [lines, findings] : cases)
        EXPECT_EQ(findings_of(lines), findings) << lines;
    suite_directory = nullptr;
    EXPECT_EQ(told(check.check_scenario(TESK::File_name("C:\\none.tvn"))), "E . There is no such file.\n");
}

TEST_F(Project_check_test, a_new_record_of_either_kind_lacks_only_what_must_be_chosen) {
    Tilverra_scenario scenario;
    TESK::VV_file("C:\\new.tvn").set(scenario);
    EXPECT_EQ(told(check.check_scenario(TESK::File_name("C:\\new.tvn"))),
              "E parameter_filenames.soil A file is required and none is chosen.\n"
              "E parameter_filenames.location A file is required and none is chosen.\n"
              "E parameter_filenames.weather_database A file is required and none is chosen.\n");
    drives.write("p.tvp",
                 "[project]\ntype=GIS\ncropping_system_model=m.exe\n[recent]\nactive=Scenarios\\x.tvn\n"
                 "[carbon_sequestration_and_grazing_regimens]\nmax_duration=400\n");
    EXPECT_EQ(
        told(check.check_project(TESK::File_name("C:\\p.tvp"))),
        "E project.cropping_system_model The file m.exe is not there.\n"
        "E recent.active The file Scenarios\\x.tvn is not there.\n"
        "W carbon_sequestration_and_grazing_regimens.max_duration The value 400 days should range from 1 - "
        "365.\nE GIS.coverage_PAT_filename A map is required and none is chosen.\n");
}

TEST_F(Project_check_test,
       a_list_shows_the_description_that_a_reader_gets_in_the_order_in_which_people_count) {
    for (const char* name : {"plot 10.tvn", "Plot 2.tvn", "plot 2b.tvn", "plot 02.tvn", "other.txt"})
        drives.write(std::string("list/") + name);
    drives.write("list/folder.tvn/x");
    EXPECT_EQ(list_scenarios(TESK::Directory_name("C:\\list")),
              (std::vector<std::string>{"Plot 2.tvn", "plot 02.tvn", "plot 2b.tvn", "plot 10.tvn"}));
    const char* const texts[] = {
        "[scenario]\ndescription=one\n[simulation]\ndescription=old\n[version]\nmajor=4\n[scenario]\n"
        "description= two\r\n",
        "description=bare\n[x]\ndescription=other\n",
        "[simulation]\ndescription=of version 3\n[scenario]\ndescription=x\n",
        "[scenario]\n\n\n\n\n\n\n\n\n\n\n\n\n\n\n\n\n\n\n\n\n\ndescription=behind the end\n",
        "",
    };
    for (const char* text : texts) {
        drives.write("s.tvn", text);
        Tilverra_scenario scenario;
        TESK::VV_file("C:\\s.tvn").get(scenario);
        const Scenario_overview overview = read_scenario_overview("C:\\s.tvn");
        EXPECT_EQ(overview.description, scenario.description) << text;
        EXPECT_TRUE(overview.is_readable && overview.changed.has_value());
    }
    EXPECT_FALSE(read_scenario_overview("C:\\none.tvn").is_readable);
}

} // namespace
