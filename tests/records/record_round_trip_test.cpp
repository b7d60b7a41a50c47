// Whatever a file holds, and however it spells it, a save of the record that was read from it changes nothing
// of what a reader finds there.
#include "record_support.h"
#include "records/vv_text.h"

#include <map>
#include <random>

using namespace TESK;

namespace {

class Varied_record : public Data_record {
public:
    Varied_record() : Data_record("primary") {}
    void expect_structure(bool for_write) override {
        Data_record::expect_structure(for_write);
        expect_string("title", title, 255);
        expect_enumerated_section(std::make_unique<Growing_series<Element>>("thing", true, elements), false);
        set_current_section("numbers");
        expect_int16("whole", whole);
        set_entry_alias("whole", "old_whole");
        sections.add_alias("numbers", "old_numbers");
        if (!for_write)
            expect_float32("old_real", real);
        expect_float32("real", real, "a caption");
        expect_float32_array_with_units_label("salt", "dS/m", salt, 1, 3, true);
        expect_float32_array_with_units_code("NO3", 0x2A820603, NO3, 1, 3, false);
    }

    Ustring title;
    std::int16_t whole = 0;
    float real = 0;
    float salt[4] = {};
    float NO3[4] = {};
    Bidirectional_list elements;
};

// What a reader finds: the values by their present names, behind "section/key". An old count counts.
std::map<std::string, std::string> found_in(std::string text) {
    for (std::size_t at = 0; (at = text.find("thing_count=", at)) != std::string::npos;)
        text.replace(at, 12, "thing:count=");
    Varied_record record;
    VV_text(text, true).get(record);
    std::map<std::string, std::string> found;
    std::string value;
    for (const VV_section& section : record.all_sections())
        for (const VV_base_entry& entry : section.all_entries()) {
            std::string place = section.label + "/" + entry.key;
            if (place.starts_with("thing_"))
                place[5] = ':';
            if (entry.encountered)
                found[place == "numbers/old_real" ? "numbers/real" : place] = entry.get_value(value);
        }
    return found;
}

class Random_file {
public:
    explicit Random_file(unsigned seed, bool may_repeat) : random_(seed), may_repeat_(may_repeat) {
        const int count = pick(4);
        std::vector<std::string> blocks;
        if (count > 0)
            blocks.push_back("[primary]" + end() + one_of({"thing:count=", "thing_count="}) +
                             std::to_string(count) + end());
        for (int index = 1; index <= count + pick(2); ++index)
            blocks.push_back(section(one_of({"thing:", "thing_"}) + std::to_string(index),
                                     {"value", "number", "unknown"}));
        blocks.push_back(section("NO3", {"units", "1", "2", "9"}));
        blocks.push_back(section(one_of({"numbers", "old_numbers"}),
                                 {one_of({"whole", "old_whole"}), one_of({"real", "old_real"}), "salt_units",
                                  "salt_1", "unknown"}));
        blocks.push_back(section("other", {"b", "a", "event:count", "; c", "thing"}));
        if (may_repeat) {
            blocks.push_back(section("other", {"a", "b"}));
            blocks.push_back(section("numbers", {"whole", "old_real", "real", "old_whole"}));
        }
        std::shuffle(blocks.begin(), blocks.end(), random_);
        text = section("", {"title", "before any header"});
        for (const std::string& block : blocks)
            text += block;
        if (pick(3) == 0) {
            for (int line = 0; line < 20; ++line)
                text += end();
            text += section("NO3", {"units", "1"}) + section("never read", {"k"});
        }
    }

    std::string text;

private:
    int pick(int count) { return static_cast<int>(random_() % static_cast<unsigned>(count)); }
    std::string one_of(const std::vector<std::string>& choices) {
        return choices[static_cast<std::size_t>(pick(static_cast<int>(choices.size())))];
    }
    std::string end() { return one_of({"\n", "\r\n"}); }
    std::string section(const std::string& name, std::vector<std::string> keys) {
        std::shuffle(keys.begin(), keys.end(), random_);
        std::string lines =
            name.empty() ? "" : one_of({"", " \t"}) + "[" + name + "]" + one_of({"", " x"}) + end();
        for (const std::string& key : keys)
            for (int times = pick(may_repeat_ ? 4 : 3); times > 0; times -= 2)
                lines += key + "=" +
                         (key.ends_with("units") ? one_of({"lb/acre", "kg/ha", "bushels", "", " m\xB2 "})
                                                 : one_of({"1", "2.5 x", "", " = ", "-7\r8", "\xE9", "\r"})) +
                         end() + one_of({"", "", end()});
        if (pick(4) == 0)
            lines += "a bare line" + end();
        return lines;
    }

    std::mt19937 random_;
    bool may_repeat_;
};

void save_again(VV_text& file, bool redeclared) {
    Varied_record record;
    file.get(record);
    if (redeclared)
        record.redeclare_for_write();
    else
        record.set_preserve_unexpected(true);
    file.set(record);
}

TEST(Record_round_trip, a_save_of_what_was_read_changes_nothing_that_a_reader_finds) {
    for (unsigned seed = 0; seed < 600; ++seed)
        for (const bool redeclared : {false, true}) {
            // Of unknown keys that stand twice a plain save keeps the first.
            const std::string before = Random_file(seed, redeclared).text;
            const std::size_t unread = before.find("[never read]");
            VV_text file(before, redeclared);
            for (int saves = 0; saves < 3; ++saves) {
                save_again(file, redeclared);
                const auto after = found_in(file.text());
                for (const auto& [place, value] : found_in(before)) {
                    const auto at = after.find(place);
                    ASSERT_TRUE(at != after.end() && at->second == value)
                        << place << " in seed " << seed << "\n"
                        << before << "\nsaved as\n"
                        << file.text();
                }
                ASSERT_TRUE(unread == std::string::npos || file.text().ends_with(before.substr(unread)));
            }
        }
}

} // namespace
