#include "foundation/enumeration.h"
#include "foundation/labeled_enum.h"
#include "foundation/test_item.h"

namespace {

class Table_enum : public Labeled_enum {
public:
    explicit Table_enum(const char* const* labels) : Labeled_enum(labels) {}
    explicit Table_enum(const Label_description* labels) : Labeled_enum(labels) {}
    std::int32_t get_int32() const override { return value; }
    void set_int32(std::int32_t new_value) override { value = new_value; }
    std::int32_t value = 99;
};

constexpr const char* words[] = {"on", "off", "ON", "auto", "Auto", "off", "caf\xE9", "", "behind the end"};
constexpr Label_description described[] = {{"on", "is on"},   {"off", "is off"},     {"ON", "is ON"},
                                           {"auto", nullptr}, {"Auto", "by itself"}, {"off", "is off again"},
                                           {"caf\xE9", ""},   {nullptr, nullptr}};

using Set_label = std::pair<const char*, std::int32_t>; // a text, and the value that it sets

TEST(Labeled_enum, the_last_exact_match_wins_and_then_the_last_without_case) {
    // An exact match at 0 counts for nothing beside a later one without case.
    const Set_label cases[] = {
        {"off", 5},  {"OFF", 5},     {"auto", 3},          {"Auto", 4}, {"aUTO", 4},           {"on", 2},
        {"On", 2},   {"CAF\xC9", 6}, {"no such label", 0}, {"", 0},     {"behind the end", 0}, {"of", 0},
        {"off ", 0}, {nullptr, 0}};
    Table_enum plain(words);
    Table_enum descriptive(described);
    for (const auto& [text, value] : cases) {
        for (Table_enum* labeled : {&plain, &descriptive}) {
            labeled->value = 99;
            EXPECT_EQ(labeled->set_label(text), value) << text;
            EXPECT_EQ(labeled->value, value) << text;
        }
    }
}

TEST(Labeled_enum, labels_are_told_exactly_and_stay_inside_their_table) {
    Table_enum plain(words);
    Table_enum descriptive(described);
    for (Table_enum* labeled : {&plain, &descriptive}) {
        EXPECT_TRUE(labeled->is_label("Auto"));
        for (const char* text : {"Off", "", "behind the end", static_cast<const char*>(nullptr)})
            EXPECT_FALSE(labeled->is_label(text));
        EXPECT_EQ(labeled->get_label_count(), 7);
        EXPECT_EQ(labeled->get_max_label_length(), 4);
        for (const std::int32_t outside : {7, 8, 1000, -1}) {
            labeled->value = outside;
            EXPECT_EQ(labeled->get_label(), std::to_string(outside));
            EXPECT_EQ(labeled->get_description(), std::to_string(outside));
        }
        labeled->value = 4;
        EXPECT_EQ(labeled->get_label(), "Auto");
    }
    EXPECT_EQ(plain.get_description(), "Auto");
    EXPECT_EQ(descriptive.get_description(), "by itself");
    descriptive.value = 3;
    EXPECT_EQ(descriptive.get_description(), "");
}

TEST(Labeled_enum, without_a_table_the_number_is_the_label) {
    Table_enum number(static_cast<const char* const*>(nullptr));
    const Set_label cases[] = {{" -7 days", -7}, {"off", 0}, {"4294967297", 1}, {nullptr, 0}, {"3", 3}};
    for (const auto& [text, value] : cases)
        EXPECT_EQ(number.set_label(text), value) << text;
    EXPECT_EQ(number.get_label(), "3");
    EXPECT_FALSE(number.is_label("3"));
    EXPECT_EQ(number.get_max_label_length(), 0);
}

class Number_item : public TESK::Enumeration {
public:
    explicit Number_item(std::int32_t value) : value_(value) {}
    std::int32_t get_int32() const override { return value_; }
    std::ostream& write(std::ostream& out) const override {
        std::string label = "what was there";
        return out << label_to(label) << ' ';
    }

private:
    std::int32_t value_;
};

TEST(Enumeration_list, values_are_ordered_as_unsigned_and_found_and_removed) {
    TESK::Enumeration_list list;
    for (const std::int32_t value : {7, -1, 0, 7, INT32_MIN, 3})
        list.append(new Number_item(value));
    EXPECT_EQ(list.find(7), list.get_at(0));
    EXPECT_EQ(list.find(0xFFFFFFFFU), list.get_at(1));
    list.sort(TESK::Sort_order::ascending);
    EXPECT_EQ(TESK::forwards(list), "0 3 7 7 -2147483648 -1 ");
    EXPECT_TRUE(list.remove_all(7));
    EXPECT_FALSE(list.remove_all(7));
    EXPECT_EQ(TESK::forwards(list), "0 3 -2147483648 -1 ");
}

} // namespace
