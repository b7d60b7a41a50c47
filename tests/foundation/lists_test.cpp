#include "foundation/test_item.h"

namespace TESK {
namespace {

template <class List>
class Every_list : public List_test {};
using List_types = testing::Types<Unidirectional_list, Bidirectional_list>;
TYPED_TEST_SUITE(Every_list, List_types);
using Lists = List_test;

TYPED_TEST(Every_list, nothing_comes_of_null_items_and_empty_lists) {
    TypeParam list;
    for (const Item* item : {list.pop_first(), list.pop_last(), list.pop_at_head(), list.append(nullptr),
                             list.prepend(nullptr), list.append_sorted(nullptr, Sort_order::ascending),
                             list.insert_before(nullptr, nullptr), list.detach(nullptr), list.get_nth(0)})
        EXPECT_EQ(item, nullptr);
    list.remove(nullptr);
    const auto nowhere = list.iterator();
    for (const Item* item : {nowhere->current(), nowhere->next(), nowhere->last(), nowhere->detach_current()})
        EXPECT_EQ(item, nullptr);
    EXPECT_FALSE(nowhere->delete_current());
    EXPECT_TRUE(list.is_empty());
    EXPECT_FALSE(list.get_modified(false));
}

TYPED_TEST(Every_list, items_are_counted_from_zero_or_one_and_handed_back_whole) {
    TypeParam list;
    fill(list, "abcde");
    EXPECT_EQ(list.get_nth(0), list.get_nth(1));
    EXPECT_EQ(list.get_nth(5), list.get_at(4));
    EXPECT_EQ(list.get_at(list.count()), nullptr);
    const std::unique_ptr<Item> a(list.detach(list.get_at(0)));
    EXPECT_EQ(list.detach(a.get()), a.get()); // in the list or not
    list.remove(a.get());
    EXPECT_EQ(Test_item::live, 5U);
    EXPECT_TRUE(list.remove_nth(0) && list.remove_at(2));
    EXPECT_FALSE(list.remove_nth(3) || list.remove_at(2));
    EXPECT_EQ(forwards(list), "cd");
}

TYPED_TEST(Every_list, the_iterator_walks_finds_and_seeks) {
    TypeParam list;
    fill(list, "abcAd");
    const auto place = list.iterator();
    EXPECT_EQ(place->next(), list.get_at(1)); // it stood on the head
    const Test_item wanted("A");
    EXPECT_EQ(place->find_comparable(wanted, false), list.get_at(3));
    EXPECT_EQ(place->find_comparable(wanted, true), list.get_at(0));
    EXPECT_EQ(place->find_item(list.get_at(2), false), list.get_at(2));
    EXPECT_TRUE(place->contains(list.get_at(3), false));
    EXPECT_EQ(place->current(), list.get_at(3));
    EXPECT_FALSE(place->contains(list.get_at(2), false));
    EXPECT_EQ(place->next(), nullptr); // it was left without a place
    EXPECT_EQ(place->prev(), nullptr);
    EXPECT_EQ(place->current(), list.get_at(0));

    EXPECT_EQ(place->seek(4), list.get_at(4));
    EXPECT_EQ(place->seek(5), nullptr);
    EXPECT_EQ(place->current(), list.get_at(4));
    EXPECT_EQ(place->seek_nth(2), list.get_at(1));
    EXPECT_EQ(place->seek_nth(0), list.get_at(0));
    place->reset();
    EXPECT_FALSE(place->delete_current());
    EXPECT_EQ(list.find_comparable(wanted, false), list.get_at(0));
    EXPECT_EQ(list.find_comparable_at_iterator(Test_item("D"), true), list.get_at(4));
}

TYPED_TEST(Every_list, taking_out_at_the_iterator_moves_to_the_next_and_from_the_last_to_the_head) {
    TypeParam list;
    fill(list, "abcd");
    const auto place = list.iterator();
    place->seek(1);
    EXPECT_TRUE(place->delete_current());
    EXPECT_EQ(place->current(), list.get_at(1));
    place->last();
    delete place->detach_current();
    EXPECT_EQ(place->next(), list.get_at(1)); // it stood on the head
    EXPECT_TRUE(place->delete_current() && place->delete_current());
    EXPECT_FALSE(place->delete_current());
    fill(list, "x");
    EXPECT_EQ(place->current(), list.get_at(0));
    EXPECT_EQ(forwards(list), "x");
}

TYPED_TEST(Every_list, filters_take_their_items_and_keep_the_order_of_all) {
    const char* taken_by[] = {"abcde", "bd", "cd", "abcde", "ae", "ace", "abe", "abce", ""};
    for (int number = 0; number <= 8; ++number) {
        const auto filter = static_cast<Item_filter>(number);
        const std::string taken = taken_by[number];
        std::string left = "abcde";
        std::erase_if(left, [&](char c) { return taken.find(c) != taken.npos; });
        TypeParam list, to;
        fill(list, "abcde");
        to.transfer_all_from(list, filter);
        EXPECT_EQ(forwards(to), taken) << number;
        list.transfer_all_from(to, Item_filter::all);
        EXPECT_EQ(forwards(list), left + taken) << number;
        EXPECT_EQ(list.delete_all(filter), taken.size()) << number;
        EXPECT_EQ(forwards(list), left) << number;
        EXPECT_EQ(Test_item::live, left.size()) << number;
    }
    TypeParam list;
    fill(list, "abcd");
    list.transfer_all_from(list, Item_filter::all);
    list.check_all(true);
    list.select_all(true);
    EXPECT_EQ(list.delete_all(Item_filter::not_both), 0U);
    list.check_all(false);
    EXPECT_EQ(list.delete_all(Item_filter::checked), 0U);
}

// What changes of "abcd" leave, from the head and, by the ways back, from the tail.
TEST_F(Lists, ways_back_are_kept_lost_or_rebuilt_as_each_operation_has_it) {
    // Changes of operation, index and letter; what stands in the list; what the ways back lead over.
    const char* cases[] = {"h0x xabcd dcbax", "s0B abBcd dcBba", "P0_a0e abce ecba", "p0_ bcd dcb",
                           "d1_ acd dc", "d0_ bcd dcb", "d3_a0e abce ecba", "k2_ abd d", "r1_ acd dca",
                           "d1_r2_ ac ca",
                           // An inserted item has no way back, and the one behind it leads past it.
                           "i2x abxcd dcba", "i0x xabcd dcbax", "i9x xabcd dcbax", "i2xr0_ bxcd dcx",
                           "i2xd2_ abcd dcba", "i3xP0_a0e abcxe ex",
                           // But never to an item that is gone.
                           "i2xd1_ axcd dc", "i1xi1yp0_ yxbcd dcb", "i2xd3_d1_a0e axde ed"};
    for (const char* text : cases) {
        std::string changes, expected, expected_back;
        std::istringstream(text) >> changes >> expected >> expected_back;
        Bidirectional_list list;
        fill(list, "abcd");
        list.set_modified(false);
        for (std::size_t i = 0; i < changes.size(); i += 3)
            change(list, changes[i], static_cast<std::uint32_t>(changes[i + 1] - '0'),
                   changes.substr(i + 2, 1));
        EXPECT_EQ(forwards(list), expected) << text;
        EXPECT_EQ(backwards(list), expected_back) << text;
        EXPECT_TRUE(list.get_modified(true)) << text;
        EXPECT_FALSE(list.get_modified(false)) << text;
    }
    Unidirectional_list one_way;
    fill(one_way, "ab");
    EXPECT_EQ(backwards(one_way), "b");
}

TEST_F(Lists, sorting_is_stable_both_ways_and_is_no_modification) {
    const char* sorted[] = {"aAAbBbcC", "cCbBbaAA", "bcaBAbCA"};
    for (int order = 0; order < 3; ++order) {
        Bidirectional_list list;
        fill(list, "bcaBAbCA");
        list.set_modified(false);
        list.sort(static_cast<Sort_order>(order));
        EXPECT_EQ(forwards(list), sorted[order]);
        EXPECT_FALSE(list.get_modified(false));
    }
}

TEST_F(Lists, finding_backwards_meets_the_last_equal_item_first) {
    Bidirectional_list list;
    EXPECT_EQ(list.find_backward(Test_item("a"), true), nullptr);
    fill(list, "abAc");
    EXPECT_EQ(list.find_backward(Test_item("a"), true), list.get_at(2));
    EXPECT_EQ(list.find_backward(Test_item("a"), false), list.get_at(0)); // from the head, where it begins
    EXPECT_EQ(list.find_backward(Test_item("b"), false), nullptr);
}

} // namespace
} // namespace TESK
