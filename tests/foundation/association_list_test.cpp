#include "foundation/code_page_1252.h"
#include "foundation/test_item.h"

#include <array>
#include <random>
#include <vector>

namespace TESK {
namespace {

using Association_lists = List_test;

TEST_F(Association_lists, keys_are_compared_without_case_unless_one_side_counts_it) {
    const std::tuple<Key, Key, int, int> cases[] = {
        {"a", "A", 0, 1}, {"B", "a", 1, -1}, {"a", "ab", -1, -1}, {"\xC9", "\xE9", 0, -1},
        {"x", "x", 0, 0}, {{}, "x", -1, -1}, {"x", {}, -1, -1},   {{}, {}, -1, -1}};
    for (const auto& [a, b, order, order_by_case] : cases) {
        EXPECT_EQ(Test_item(a).compare(Test_item(b)), order);
        EXPECT_EQ(Test_item(a, true).compare(Test_item(b)), order_by_case);
        EXPECT_EQ(Test_item(a).compare(Test_item(b, true)), order_by_case);
    }
    EXPECT_EQ(Test_item("x").compare(Alias("x", "x")), -1); // no Association
    std::string label = "what was there";
    EXPECT_EQ(Test_item("key").label_to(label), "key");
}

template <class List>
class Every_association_list : public List_test {};
using Association_list_types = testing::Types<Association_list, Alias_association_list>;
TYPED_TEST_SUITE(Every_association_list, Association_list_types);

TYPED_TEST(Every_association_list, items_are_found_and_removed_up_to_one_without_a_key) {
    TypeParam list;
    EXPECT_EQ(list.find("a", true), nullptr);
    fill(list, "BabAa-c");
    EXPECT_EQ(list.find("b", false), list.get_at(0));
    EXPECT_EQ(list.find("b", true), list.get_at(2));
    EXPECT_TRUE(list.remove_all("a", true));
    EXPECT_EQ(forwards(list), "BbA-c");
    EXPECT_TRUE(list.remove_all("b", false));
    for (const char* key : {"b", "c", static_cast<const char*>(nullptr)})
        EXPECT_FALSE(list.remove_all(key, false) || list.remove_all(key, true));
    EXPECT_EQ(forwards(list), "A-c");
}

TYPED_TEST(Every_association_list, unique_keys_refuse_an_equal_key_and_leave_the_item_to_the_caller) {
    TypeParam list(true);
    fill(list, "xy-");
    list.set_modified(false);
    Test_item again("x");
    EXPECT_EQ(list.append(&again), nullptr);
    EXPECT_EQ(list.prepend(&again), nullptr);
    EXPECT_EQ(list.append_sorted(&again, Sort_order::descending), nullptr);
    EXPECT_EQ(list.append(nullptr), nullptr);
    EXPECT_FALSE(list.get_modified(false));
    fill(list, "X-");
    list.prepend(new Test_item("Y"));
    EXPECT_EQ(list.find("y", false), list.get_at(0));
    EXPECT_EQ(forwards(list), "Yxy-X-");

    TypeParam from;
    fill(from, "yzyu");
    list.transfer_all_from(from, Item_filter::all);
    EXPECT_EQ(forwards(list), "Yxy-X-zu");
    EXPECT_TRUE(from.is_empty()); // what was refused is gone
}

TEST_F(Association_lists, keys_that_differ_behind_a_null_byte_are_different) {
    const std::string a("k\0a", 3), b("k\0b", 3);
    Alias_association_list list;
    for (const std::string& key : {a, b, b})
        list.append(new Test_item(key));
    EXPECT_EQ(list.find_exact(a), list.get_at(0));
    EXPECT_EQ(list.find_exact(b), list.get_at(1));
    EXPECT_EQ(list.find_exact("k"), nullptr);
}

// What find() has to answer, by walking.
const Item* naive_find(const Association_list& list, const std::vector<std::array<std::string, 2>>& aliases,
                       const std::string& key, bool case_sensitive) {
    if (const Item* item = list.Association_list::find(key.c_str(), case_sensitive))
        return item;
    for (const auto& [actual, alias] : aliases)
        if (case_sensitive ? alias == key : equal_ignoring_case(alias, key))
            return list.Association_list::find(actual.c_str(), case_sensitive);
    return nullptr;
}

TEST_F(Association_lists, finding_stays_true_after_every_kind_of_change) {
    std::mt19937 random(1252);
    const auto below = [&](std::size_t limit) { return static_cast<std::uint32_t>(random() % limit); };
    const std::vector<std::string> keys = {"a", "b", "c", "d", "A", "B", "C", "D", "e", "E"};
    for (const bool unique : {false, true}) {
        Alias_association_list list(unique);
        std::vector<std::array<std::string, 2>> aliases;
        for (int step = 0; step < 5'000; ++step) {
            const Key key = below(30) == 0 ? Key() : Key(keys[below(8)]);
            switch (const char operation = "aahisrdkpPSRwl"[below(14)]) {
            case 'R': list.remove_all(keys[below(8)].c_str(), below(2) != 0); break;
            case 'w':
                if (list.count() > 2)
                    list.swap(list.node_before_item(list.get_at(1)), list.node_before_item(list.get_at(2)));
                break;
            case 'l':
                if (below(5) == 0) {
                    list.delete_aliases();
                    aliases.clear();
                }
                aliases.push_back({keys[below(10)], keys[below(10)]});
                list.add_alias(aliases.back()[0].c_str(), aliases.back()[1].c_str());
                break;
            default: change(list, operation, below(8), key);
            }
            ASSERT_EQ(Test_item::live, list.count());
            // Not every change is followed by a look, so that changes also meet one another.
            for (const std::string& wanted : keys) {
                const bool case_sensitive = below(2) != 0;
                if (below(3) == 0) {
                    ASSERT_EQ(list.find(wanted.c_str(), case_sensitive),
                              naive_find(list, aliases, wanted, case_sensitive))
                        << step << ' ' << wanted;
                }
            }
        }
    }
}

TEST_F(Association_lists, a_hundred_thousand_unique_keys_are_added_and_found_in_time) {
    Alias_association_list list(true);
    list.prepend(new Test_item("first")); // what follows must not pay again and again for this
    for (int i = 0; i < 100'000; ++i)
        list.append(new Test_item("key " + std::to_string(i)));
    EXPECT_EQ(list.count(), 100'001U);
    for (int i = 0; i < 100'000; ++i)
        ASSERT_NE(list.find(("key " + std::to_string(i)).c_str(), true), nullptr);
}

} // namespace
} // namespace TESK
