// Settings of record files: what is told of them, single changes that leave every other byte, and what
// differs.
#include "operations/record_settings.h"

#include "operations/record_difference.h"
#include "support/temporary_folder.h"

#include <array>
#include <gtest/gtest.h>

namespace {

using namespace std::string_literals;

// A scenario as other programs may have left it: unknown sections and keys, line feeds alone, two places for
// one value, no line end at its end.
const char* const odd_scenario =
    "description=first\n[weather_tool]\nseed=7\n\n[parameter_filenames]\n  soil=a.sil\n"
    "rotation=x.rot\nnote=ours\n[cropping_system]\nrotation=x.rot\n[salt]\n"
    "ECe_to_TDS=0.6400000000 old words\nunits=dS/m\n1=0.5\n[simulation]\n"
    "starting_date=1996001\n[version]\nmajor=4\nrelease=14\nminor=4\n"
    "[weather_tool]\nseed=8";

class Record_settings_test : public testing::Test {
protected:
    TESK::File_name file(const std::string& text, const std::string& name = "odd.tvn") {
        return TESK::File_name(folder.write(name, text).c_str());
    }
    Temporary_folder folder;
};

TEST_F(Record_settings_test, a_setting_tells_what_the_record_declares_of_it) {
    const Record_settings settings(file(odd_scenario));
    // Name, kind, value, unit, and caption.
    const std::array<std::string, 5> cases[] = {
        {"scenario.description", "text", "first", "", ""},
        {"parameter_filenames.soil", "file", "a.sil", "", ""},
        {"salt.1", "number", "0.5", "dS/m", "Salinity"},
        {"salt.ECe_to_TDS", "number", "0.64", "factor",
         "Soil profile ECe (dS/m) -> TDS (kg/m\263) conversion factor Eletrical conductivity in water (dS/m) "
         "to total dissolved solids (l/g or kg/m\263). Usually about 0.64."},
        {"NO3.adjust_denitrify", "number", "0.1", "0-2", "Denitrification rate adjustment"},
        {"field.size", "number", "0", "ha", ""},
        {"simulation.starting_date", "date", "1996-01-01", "", ""},
        {"simulation.ending_date", "date", "2001-01-01", "", ""},
        {"submodels.hourly", "integer", "0", "", ""},
        {"submodels.runoff_model", "choice", "curve_number", "", ""},
        {"output.run_time_graph", "flag", "true", "", ""},
        {"NO3.units", "unit", "kg/ha", "", ""},
        {"weather_tool.seed", "text", "8", "", ""},
    };
    for (const auto& expected : cases) {
        const std::string& name = expected[0];
        const Setting* setting = settings.find(name);
        ASSERT_NE(setting, nullptr) << name;
        EXPECT_EQ((std::array<std::string, 5>{name, setting_kind_name(setting->kind()), setting->value(),
                                              setting->unit(), setting->caption()}),
                  expected);
        EXPECT_EQ(setting->is_known(), !name.starts_with("weather_tool")) << name;
    }
    EXPECT_EQ(settings.find("cropping_system.cropping_mode")->choices()[2],
              std::pair("rotation"s, "Rotation"s));
    EXPECT_EQ(settings.find("parameter_filenames.soil")->file_masks(), "*.sil");
    EXPECT_TRUE(settings.find("parameter_filenames.soil")->is_in_file());
    EXPECT_FALSE(settings.find("parameter_filenames.location")->is_in_file());
    EXPECT_EQ(settings.find("initialize.soil"), nullptr);
}

TEST_F(Record_settings_test, a_change_leaves_every_other_byte_of_the_file) {
    // A setting, its new value, and what in the file is replaced by what.
    const std::array<std::string, 4> cases[] = {
        {"parameter_filenames.soil", "C:\\b c.sil", "  soil=a.sil\n", "  soil=C:\\b c.sil\n"},
        // One field under two keys: else the one further down would win.
        {"parameter_filenames.rotation", "y.rot",
         "rotation=x.rot\nnote=ours\n[cropping_system]\nrotation=x.rot",
         "rotation=y.rot\nnote=ours\n[cropping_system]\nrotation=y.rot"},
        {"salt.1", "1e-1", "\n1=0.5\n", "\n1=0.1000000015\n"},
        {"simulation.starting_date", "1996-02-29", "1996001", "1996060 (1996/2/29)"},
        {"simulation.starting_date", "0", "1996001", "0 (Date omitted)"},
        {"weather_tool.seed", "[9]=", "seed=8", "seed=[9]="},
        // What the file lacks goes where a save would put it, or to the end.
        {"simulation.ending_date", "1997365", "starting_date=1996001\n",
         "starting_date=1996001\nending_date=1997365 (1997/12/31)\n"},
        {"parameter_filenames.location", "l.loc", "  soil=a.sil\n", "  soil=a.sil\nlocation=l.loc\n"},
        {"submodels.hourly", "101", "seed=8", "seed=8\n[submodels]\nhourly=101\n"},
        {"scenario.details_URL", "u", "description=first\n", "description=first\n"},
        {"submodels.infiltration_model", "CASCADE", "", ""},
    };
    for (const auto& [name, value, old_part, new_part] : cases) {
        Record_settings settings(file(odd_scenario));
        const Setting_change change = settings.set(name, value);
        EXPECT_TRUE(change.done) << name << ": " << change.reason;
        EXPECT_TRUE(settings.save().ok());
        std::string expected = odd_scenario;
        expected.replace(old_part.empty() ? 0 : expected.rfind(old_part), old_part.size(), new_part);
        if (name == "scenario.details_URL")
            expected += "\n[scenario]\ndetails_URL=u\n";
        EXPECT_EQ(folder.read("odd.tvn"), expected) << name;
        const Record_settings again(settings.file());
        ASSERT_NE(again.find(name), nullptr) << name;
        EXPECT_EQ(again.find(name)->value(), settings.find(name)->value());
    }
}

TEST_F(Record_settings_test, what_type_validation_or_another_program_forbids_is_refused_with_the_reason) {
    constexpr const char* number = "The value must be a number such as 12 or 0.25.";
    constexpr const char* date = "The value must be a date such as 1996-05-02 or 1996123, or 0 for none.";
    constexpr const char* not_by_hand = "It follows from the rest of the file and is not set by hand.";
    const std::array<const char*, 3> cases[] = {
        {"salt.1", "much", number},
        {"salt.1", "0.5 dS/m", number},
        {"salt.1", "inf", number},
        {"salt.1", "50.5", "The value must be less than 50.000."},
        {"weather.temperature_phase", "0", "The value must range from 1 - 456."},
        {"field.number", "70000", "The value must be a whole number from -32768 to 32767."},
        {"submodels.hourly", "5",
         "The value must be a whole number in base 2 from 0 to 11111111111111111111111111111111."},
        {"simulation.starting_date", "1997-02-29", date},
        {"simulation.starting_date", "1996367", date},
        {"output.display_profile", "yes", "The value must be true or false."},
        {"submodels.snow_pack_model", "deep", "The value must be one of: none, simple, energy."},
        {"NO3.units", "bushels", "The value must be a unit such as kg/ha."},
        {"STATSGO.muid", "12345678", "The value must have no more than 7 characters."},
        {"scenario.description", "two\nlines", "The value must be one line of text."},
        {"scenario.event:count", "2", not_by_hand},
        {"version.major", "5", not_by_hand},
        {"salt.sweetness", "1", "No section and key of that name are known: salt.sweetness."},
    };
    Record_settings settings(file(odd_scenario));
    for (const auto& [name, value, reason] : cases) {
        const Setting_change change = settings.set(name, value);
        EXPECT_FALSE(change.done) << name;
        EXPECT_EQ(change.reason, reason) << name << '=' << value;
    }
    EXPECT_FALSE(settings.is_changed());
    // A doubtful value is taken, and said to be doubtful.
    EXPECT_EQ(settings.set("salt.1", "30").reason, "The value should be less than 26.000.");
    folder.write("odd.tvn", "[scenario]\ndescription=meanwhile\n");
    EXPECT_EQ(settings.save().reason, "Another program has changed the file since it was read.");
    EXPECT_EQ(folder.read("odd.tvn"), "[scenario]\ndescription=meanwhile\n");

    Record_settings old(file("[simulation]\nsoil_filename=a.sil\n", "old.sim"));
    EXPECT_EQ(
        old.set("parameter_filenames.soil", "b.sil").reason,
        "The file is of an older version and says it under [simulation] soil_filename. Convert the file "
        "first.");
    EXPECT_NE(Record_settings(TESK::File_name("Z:\\no\\such.tvn")).failure(), "");
}

TEST_F(Record_settings_test, an_event_shows_the_keys_of_its_kind_and_those_follow_a_change) {
    Record_settings settings(
        file("[scenario]\r\nevent:count=1\r\n[event:1]\r\nID=a\r\n"
             "event_synchronization=relative_to_simulation_event\r\nevent_offset=3\r\n"));
    EXPECT_EQ(settings.find("event:1.event_date"), nullptr);
    EXPECT_TRUE(settings.set("event:1.event_synchronization", "actual_date").done);
    EXPECT_TRUE(settings.set("event:1.event_date", "1996-05-02").done);
    EXPECT_EQ(settings.text(), "[scenario]\r\nevent:count=1\r\n[event:1]\r\nID=a\r\n"
                               "event_synchronization=actual_date\r\nevent_date=1996123 (1996/5/2)\r\n"
                               "event_offset=3\r\n");
}

TEST_F(Record_settings_test, differences_tell_who_changed_what_of_a_common_record) {
    const auto text = [](const char* soil, const char* salt, const char* more) {
        return std::string("[parameter_filenames]\nsoil=") + soil + "\n[salt]\n1=" + salt + "\n2=1\n" + more;
    };
    const std::string common = file(text("a.sil", "1", "[ours]\nx=1\n"), "common.tvn");
    const std::string first = file(text("b.sil", "1.0000", "[ours]\nx=2\n"), "first.tvn");
    const std::string second = file(text("b.sil", "2", "[ours]\nx=3\ny=1\n"), "second.tvn");
    const auto told = [](const std::vector<std::string>& files) {
        std::string lines;
        Settings_grid records;
        records.read(files, {});
        for (const Record_difference& one : compare_records(records))
            lines += one.section + '.' + one.key + ' ' + one.first.value_or("-") + ' ' +
                     one.second.value_or("-") + ' ' + "FSAB"[static_cast<int>(one.changed_by)] + '\n';
        return lines;
    };
    EXPECT_EQ(told({first, second}), "salt.1 1 2 B\nours.x 2 3 B\nours.y - 1 B\n");
    EXPECT_EQ(told({first, second, common}),
              "parameter_filenames.soil b.sil b.sil A\nsalt.1 1 2 S\nours.x 2 3 B\nours.y - 1 S\n");
    EXPECT_EQ(told({first, first}), "");
}

} // namespace
