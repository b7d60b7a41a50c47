#include "operations/scenario_reset.h"

#include "model/scenario_support.h"
#include "operations/project_check.h"
#include "platform/file_writer.h"
#include "records/vv_text.h"
#include "support/temporary_drives.h"

#include <map>
#include <sstream>

namespace {

using Findings = std::map<std::string, std::string>;

class Scenario_reset_test : public Scenario_test {
protected:
    // Resets a file of the text from another, with the boxes of the captions ticked. Gives what it holds
    // then.
    std::string reset(const std::string& source, const std::string& target,
                      const std::vector<std::string>& captions) {
        folder.write("source.tvn", source);
        folder.write("target.tvn", target);
        EXPECT_TRUE(reset_files(captions));
        return folder.read("target.tvn");
    }
    bool reset_files(const std::vector<std::string>& captions) {
        Ticked_reset_boxes ticked;
        for (std::size_t box = 0; box < reset_boxes.size(); ++box)
            ticked[box] =
                std::find(captions.begin(), captions.end(), reset_boxes[box].caption) != captions.end();
        EXPECT_EQ(ticked.count(), captions.size());
        return reset_scenario(TESK::File_name(folder.name("source.tvn").c_str()),
                              TESK::File_name(folder.name("target.tvn").c_str()), ticked)
            .ok();
    }
    // What a reader finds in the text: the values behind "section/key", by their present names. A count under
    // its old key counts. What stands in none of the sections is passed over, and so are versions.
    static Findings found_in(std::string text, const std::string& sections = {}) {
        if (const std::size_t at = text.find("event_count="); at != std::string::npos)
            text[at + 5] = ':';
        Tilverra_scenario scenario;
        TESK::VV_text(text, true).get(scenario);
        Findings found;
        std::string value;
        for (const TESK::VV_section& section : scenario.all_sections())
            for (const TESK::VV_base_entry& entry : section.all_entries())
                if (entry.encountered && section.label != "version" &&
                    (sections.empty() || sections.find("[" + section.label + "]") != std::string::npos))
                    found[section.label + "/" + entry.key] = entry.get_value(value);
        return found;
    }
    // Everything that a reader found before is still found.
    static void expect_kept(const Findings& before, const std::string& text) {
        const Findings after = found_in(text);
        for (const auto& [place, value] : before) {
            const auto at = after.find(place);
            EXPECT_TRUE(at != after.end() && at->second == value)
                << place << "=" << value << " is lost or changed in\n"
                << text;
        }
    }
    // The headers of a file, run together.
    static std::string headers(const std::string& text) {
        std::istringstream lines(text);
        std::string result;
        for (std::string line; std::getline(lines, line);)
            if (line.starts_with('['))
                result += line.substr(0, line.find(']') + 1);
        return result;
    }
};

TEST_F(Scenario_reset_test, a_target_of_which_nothing_is_replaced_keeps_all_that_a_reader_finds) {
    for (const std::string& text :
         {contents("base.tvn"), contents("version3.sim"),
          std::string(
              "stray\nevent:count=2\n[other]\nb=1\na= x \n[event:1]\nID=one\nunknown=1\n"
              "[event:2]\nID=two\nperiod_repetitions=3\nnote=kept\n[event:3]\nID=none\n[H2O]\n1=0.5\n99="
              "1\n"),
          std::string("event_count=2\n[event_1]\nID=one\nsync=after_flowering\n[event_2]\nID=two\n"),
          std::string("[event:1]\nID=one\nnote=kept\n[scenario]\nevent:count=1\n[event:1]\nres_set_ID=7\n"),
          std::string("[NO3]\nunits=lb/acre\n1=9\n[H2O]\nunits=inch/foot\n[passive_SOM]\nunits=parts\n")})
        for (const char* caption : {"Crop prod. f.", "(NYI) Weather ", "Submodels"})
            expect_kept(found_in(text), reset("[crop_production_function]\nx=1\n[weather]\nx=1\n"
                                              "[STATSGO]\nmuid=A\n[event:1]\nID=source\n",
                                              text, {caption}));
}

TEST_F(Scenario_reset_test, spellings_of_old_files_stay_where_they_stood_and_only_there) {
    const std::string events =
        "[scenario]\nevent:count=2\n[event:1]\nID=one\nsync=after_flowering\noffset=5\n"
        "[event:2]\nID=two\nevent_synchronization=actual_date\n";
    const std::string text = reset("", events, {});
    EXPECT_NE(section(text, "event:1").find("\r\nsync=after_flowering\r\noffset=5"), std::string::npos)
        << text;
    for (const char* key : {"\r\nsync=", "\r\noffset=", "\r\nphen_sync=", "\r\nend_", "\r\nbegin_"})
        EXPECT_EQ(section(text, "event:2").find(key), std::string::npos) << key;
    // Nothing of this comes out of step with repeated resets.
    EXPECT_EQ(reset("", text, {}), text);
}

TEST_F(Scenario_reset_test, sections_of_ticked_boxes_replace_the_targets_and_move_to_its_end) {
    const std::string source =
        "[salt]\nsource=1\n2=5\n[unknown]\nu=1\n[H2O]\nsource=1\n3=0.25\n[CO2]\nsource=1\n"
        "[statsgo]\nsource=1\n[simulation]\nsource=1\n";
    const std::string target = "[H2O]\ntarget=1\n1=0.75\n[other]\no=1\n[salt]\n1=1\n";
    const std::string before = headers(reset("", target, {}));
    const auto without = [&](std::string text, const std::vector<std::string>& names) {
        for (const std::string& name : names)
            if (const std::size_t place = text.find("[" + name + "]"); place != std::string::npos)
                text.erase(place, name.size() + 2);
        return text;
    };

    const std::string water = reset(source, target, {"Soil water"});
    EXPECT_EQ(headers(water), without(before, {"H2O", "salt"}) + "[H2O][salt]");
    expect_kept(found_in(source, "[H2O][salt]"), water);
    expect_kept(found_in(target, "[other][CO2]"), water);
    EXPECT_EQ(found_in(water).count("H2O/target") + found_in(water).count("CO2/source"), 0U);

    // Also a section that the record does not know, and one that the target does not have.
    const std::string several = reset(source, "", {"Submodels", "CO2", "Soil nitrogen"});
    EXPECT_EQ(headers(several),
              without(headers(reset("", "", {})), {"simulation", "CO2"}) + "[simulation][CO2][statsgo]");
}

TEST_F(Scenario_reset_test, a_section_that_does_not_stand_in_the_source_leaves_the_targets) {
    std::vector<std::string> all;
    for (const Reset_box& box : reset_boxes)
        all.emplace_back(box.caption);
    const std::string target = contents("base.tvn");
    const std::string untouched = reset("", target, {});
    EXPECT_EQ(reset("[scenario]\n[h2o]\n1=9\n[Output]\nx=1\n", target, all), untouched);
    // An old file tells its residue elsewhere: it has no such section.
    EXPECT_EQ(reset("[initialize]\nsurface_residue=0.25\n", target, all), untouched);
    std::filesystem::remove(folder.path("source.tvn"));
    EXPECT_TRUE(reset_files(all));
    EXPECT_EQ(folder.read("target.tvn"), untouched);
}

TEST_F(Scenario_reset_test, a_target_that_cannot_be_read_is_left_alone_and_a_missing_one_made) {
    folder.write("source.tvn", "[H2O]\n1=0.5\n");
    EXPECT_TRUE(reset_files({"Soil water"}));
    EXPECT_TRUE(folder.read("target.tvn").starts_with("[scenario]\r\n"));
    EXPECT_NE(folder.read("target.tvn")
                  .rfind("[H2O]\r\nrecalibrate_date=0 (Date omitted)\r\nunits=m H2O/m soil\r\n1=0.5"),
              std::string::npos);

    // One whose last save was cut short could be made whole.
    const Environment_guard user_data("XDG_DATA_HOME", folder.path("user"));
    const std::string whole = folder.read("target.tvn");
    std::filesystem::create_hard_link(folder.path("target.tvn"), folder.path("link"));
    {
        platform::File_faults faults;
        faults.fail(platform::Write_step::write_in_place, EIO, 10);
        faults.fail(platform::Write_step::write_back, EIO);
        platform::write_file(folder.name("target.tvn"), "much shorter", platform::Durability::durable);
    }
    EXPECT_NE(folder.read("target.tvn"), whole);
    EXPECT_FALSE(reset_files({"Soil water"}));
    EXPECT_EQ(Project_check().check_scenario(TESK::File_name(folder.name("target.tvn").c_str())).front().key,
              "");

    std::filesystem::remove(folder.path("target.tvn"));
    folder.write("target.tvn", "");
    std::filesystem::resize_file(folder.path("target.tvn"), TESK::VV_file::largest_file + 1);
    EXPECT_FALSE(reset_files({"Soil water"}));
    EXPECT_EQ(std::filesystem::file_size(folder.path("target.tvn")), TESK::VV_file::largest_file + 1);
}

TEST_F(Scenario_reset_test, many_are_reset_until_it_is_stopped_and_those_that_failed_are_told) {
    folder.write("source.tvn", "[H2O]\n1=0.5\n");
    std::vector<std::string> targets;
    for (const char* name : {"a.tvn", "b.tvn", "c.tvn"})
        targets.push_back(folder.write(name, "[H2O]\n1=0.25\n"));
    std::filesystem::resize_file(folder.path("a.tvn"), TESK::VV_file::largest_file + 1);
    const Operation_outcome outcome = reset_scenarios(TESK::File_name(folder.name("source.tvn").c_str()),
                                                      targets, Ticked_reset_boxes(1 << 3), nullptr,
                                                      [](std::size_t done, std::size_t) { return done < 2; });
    EXPECT_EQ(outcome.done, 1U);
    EXPECT_TRUE(outcome.stopped);
    EXPECT_EQ(describe_failures(outcome),
              "Files that could not be dealt with: 1\n" + targets[0] + ": The file cannot be read.\n");
    EXPECT_NE(folder.read("b.tvn").find("1=0.5"), std::string::npos);
    EXPECT_EQ(folder.read("c.tvn"), "[H2O]\n1=0.25\n");

    EXPECT_EQ(reset_scenarios(TESK::File_name(targets[0].c_str()), {targets[2]}, {}, nullptr, {}).refused,
              "The scenario to copy from cannot be read.");
    EXPECT_EQ(folder.read("c.tvn"), "[H2O]\n1=0.25\n");
}

} // namespace
