#include "records/data_record.h"

#include "foundation/lists.h"
#include "record_support.h"

using namespace TESK;

namespace {

// A record with a series of elements; makes those that a file counts.
class Series_record : public Data_record {
public:
    Series_record() : Data_record("primary") {}
    void expect_structure(bool for_write) override {
        Data_record::expect_structure(for_write);
        expect_enumerated_section(std::make_unique<Growing_series<Element>>("thing", true, elements), false);
        set_current_section("behind");
        expect_int16("last", last);
    }
    std::vector<std::string> values() {
        std::vector<std::string> result;
        for (const Element& element : Items_of<Element>(elements))
            result.push_back(element.value);
        return result;
    }

    Bidirectional_list elements;
    std::int16_t last = 1;
};

using Data_record_test = Record_test;

TEST_F(Data_record_test, a_series_writes_one_section_for_each_element_behind_all_others) {
    Series_record record;
    EXPECT_EQ(save(record), "[primary]\r\nthing:count=0\r\n[behind]\r\nlast=1\r\n");
    record.elements.append(new Element("one"));
    record.elements.append(new Element("nothing to declare"));
    record.elements.append(new Element("three"));
    EXPECT_EQ(save(record), "[primary]\r\nthing:count=3\r\n[behind]\r\nlast=1\r\n"
                            "[thing:1]\r\nvalue=one\r\n[thing:3]\r\nvalue=three\r\n");
}

TEST_F(Data_record_test, only_the_count_with_a_colon_declares_the_sections_of_a_series) {
    const std::string elements =
        "[thing_1]\nvalue=old\n[thing:2]\nvalue=new\n[thing:03]\nvalue=no\n[thing:4]\nvalue=no\n";
    Series_record record;
    read(record, "thing:count=3\n" + elements);
    EXPECT_EQ(record.values(), (std::vector<std::string>{"old", "new", "default"}));
    Series_record old;
    read(old, "thing_count=3\n" + elements, true);
    EXPECT_TRUE(old.values().empty());
    EXPECT_EQ(value_of(old, "primary", "thing:count"), "3");
    EXPECT_EQ(value_of(old, "thing_1", "value"), "old");
}

TEST_F(Data_record_test, a_count_makes_no_series_shorter_and_a_hostile_one_none) {
    Series_record record;
    read(record, "thing:count=2\nthing:count=1\n[thing:2]\nvalue=two\n");
    EXPECT_EQ(record.values(), (std::vector<std::string>{"default", "two"}));
    for (const char* count : {"-5", "-32768", "junk", "", "65536"}) {
        Series_record none;
        read(none, std::string("thing:count=") + count + "\n[thing:1]\nvalue=x\n");
        EXPECT_TRUE(none.values().empty()) << count;
    }
}

TEST_F(Data_record_test, the_listener_hears_of_every_field_after_a_save) {
    // Is a store too: one that keeps the structure, as tables do.
    struct Listener : Data_change_listener, Data_source {
        void record_begins(std::int32_t position) override { heard += std::to_string(position) + ";"; }
        void field_set(const std::string& key, const std::string& value,
                       const std::string& section) override {
            heard += section + "/" + key + "=" + value + ";";
        }
        void record_ends() override { heard += "end"; }
        std::string& label(std::string& buffer) const override { return buffer; }
        bool write_record(Data_record&) override { return true; }
        std::string heard;
    };
    Small_record small;
    small.set_position(4);
    Listener store;
    store.set_change_listener(&store);
    EXPECT_TRUE(store.set(small));
    EXPECT_EQ(store.heard, "4;primary/title=untitled;numbers/whole=7;numbers/real=0.5000000000;end");
}

} // namespace
