#include "editing/auto_choices.h"
#include "editing/auto_lists.h"
#include "editing/number_edit_bars.h"
#include "foundation/text_list.h"
#include "names/file_name.h"
#include "support/launcher_record.h"
#include "support/temporary_user.h"
#include "support/test_desktop.h"
#include "toolkit/label.h"
#include "toolkit/panel.h"

using TESK::Validation_status;

namespace {

class Bound_controls : public testing::Test {
protected:
    Bound_controls() { form.show(); }

    Test_desktop desktop;
    TForm form{"form"};
    TButton& elsewhere = form.add<TButton>("elsewhere", "elsewhere");
};

TEST_F(Bound_controls, what_a_field_cannot_hold_is_refused_with_its_reason) {
    auto& status = form.add<TStatusLine>("status");
    auto& whole_edit = form.add<TAutoInt16Edit>("whole");
    auto& text_edit = form.add<TAutoStringEdit>("text");
    std::int16_t whole = 9;
    TESK::Ustring text;
    whole_edit.bind_to(&whole, nullptr);
    text_edit.bind_to(&text, nullptr);
    retype(whole_edit, "9999");
    whole_edit.type_text("9");
    EXPECT_EQ(whole_edit.text(), "9999");
    EXPECT_EQ(whole, 9999);
    EXPECT_EQ(status.text(), "Only a whole number from -32768 to 32767 can stand here.");
    retype(whole_edit, "18446744073709551617");
    EXPECT_EQ(whole, 9999);
    retype(whole_edit, "4x");
    EXPECT_EQ(whole, 4);
    EXPECT_EQ(status.text(), "Only digits and a minus sign in front can stand here.");
    EXPECT_EQ(status.mark(), Mark::exclamation);
    whole_edit.type_text("5");
    EXPECT_EQ(status.text(), "") << "an edit that is taken ends the notice";
    retype(text_edit, "caf\xC3\xA9 \xE2\x82\xAC \xE2\x89\xA5 \xD0\x96 x");
    EXPECT_EQ(text_edit.text(), "caf\xC3\xA9 \xE2\x82\xAC   x");
    EXPECT_EQ(status.text(), "The file cannot hold these characters: \xE2\x89\xA5\xD0\x96");
    elsewhere.focus();
    EXPECT_EQ(text, "caf\xE9 \x80   x");
    text = "18 \xB0"
           "C";
    text_edit.bind_to(&text, nullptr);
    EXPECT_EQ(text_edit.text(), "18 \xC2\xB0"
                                "C");
}

TEST_F(Bound_controls, a_choice_that_is_left_brings_its_value_and_its_holder_along) {
    struct Holder : TPanel {
        using TPanel::TPanel;
        void Update() override { ++updates; }
        int updates = 0;
    };
    auto& holder = form.add<Holder>("holder");
    auto& check = holder.add<TAutoCheckBox>("check");
    auto& list = holder.add<TAutoBitCheckListBox>("list");
    auto& unbound = holder.add<TAutoCheckBox>("unbound");
    auto& group = holder.add<TAutoRadioGroup>("group", "group", std::vector<std::string>{"a", "b"});
    auto& items = holder.add<TAutoContainerListBox>("items");
    auto& marks = holder.add<TAutoContainerCheckListBox>("marks");
    bool flag = false;
    std::uint32_t bits = 0x82;
    const char* const captions[] = {"first", "second", nullptr};
    check.bind_to(&flag, nullptr);
    list.bind_to(&bits, captions, nullptr);
    std::int8_t byte = 0;
    group.bind_to(&byte, 0, nullptr);
    TESK::Text_list texts("one;two;", ';');
    items.bind_to(&texts, nullptr);
    TESK::Text_list marked("one;two;", ';');
    marks.bind_to(&marked, nullptr);
    const auto leave = [&](TControl& control) {
        control.focus();
        elsewhere.focus();
        return std::exchange(holder.updates, 0);
    };
    check.set_checked(true);
    EXPECT_EQ(leave(check), 1);
    EXPECT_TRUE(flag);
    EXPECT_EQ(leave(list), 1);
    EXPECT_EQ(bits, 0x82U) << "a bit without a line stays, as long as nothing was checked";
    EXPECT_EQ(leave(unbound), 0);
    group.set_item_index(1);
    EXPECT_EQ(leave(group), 1);
    EXPECT_EQ(byte, 1);
    EXPECT_EQ(leave(items), 1);
    EXPECT_EQ(leave(marks), 1);
}

TEST_F(Bound_controls, a_number_edit_keeps_only_what_belongs_to_a_number) {
    // What is typed, and what an edit makes of it for a real number and for a whole one.
    const std::tuple<const char*, const char*, float, const char*, int> cases[] = {
        {"1-2.3.4", "12.34", 12.34F, "1234", 1234},
        {"-", "-", 0, "-", 0},
        {"-1.5", "-1.5", -1.5F, "-15", -15},
        {"abc", "", 0, "", 0},
        {" 7 kg", "7", 7, "7", 7},
        {"1,5", "15", 15, "15", 15},
        {"-32768", "-32768", -32768, "-32768", -32768},
        {"00099", "00099", 99, "00099", 99},
        {"\xE2\x89\xA5"
         "3",
         "3", 3, "3", 3},
    };
    auto& real_edit = form.add<TAutoFloat32Edit>("real");
    auto& whole_edit = form.add<TAutoInt16Edit>("whole");
    float real = 1.234F;
    std::int16_t whole = 9;
    real_edit.bind_to(&real, 1, nullptr);
    whole_edit.bind_to(&whole, nullptr);
    EXPECT_EQ(real_edit.text(), "1.2");
    EXPECT_EQ(whole_edit.text(), "9");
    for (const auto& [typed, real_text, real_value, whole_text, whole_value] : cases) {
        retype(real_edit, typed);
        EXPECT_EQ(real_edit.text(), real_text) << typed;
        EXPECT_FLOAT_EQ(real, real_value) << typed;
        retype(whole_edit, typed);
        EXPECT_EQ(whole_edit.text(), whole_text) << typed;
        EXPECT_EQ(whole, whole_value) << typed;
        EXPECT_GE(real_edit.caret(), 0);
    }
    elsewhere.focus();
    EXPECT_EQ(whole_edit.text(), "3");
}

TEST_F(Bound_controls, unbound_controls_show_nothing_in_particular_and_write_nowhere) {
    auto& real_edit = form.add<TAutoFloat32Edit>("real");
    auto& whole_edit = form.add<TAutoInt16Edit>("whole");
    auto& group = form.add<TAutoRadioGroup>("group", "group", std::vector<std::string>{"a", "b"});
    auto& combo = form.add<TAutoContainerComboBox>("combo");
    real_edit.bind_to(nullptr, 3, nullptr);
    whole_edit.bind_to(nullptr, nullptr);
    group.bind_to(static_cast<Labeled_enum*>(nullptr), nullptr);
    combo.bind_to(nullptr, nullptr, nullptr);
    EXPECT_EQ(real_edit.text(), "0.000");
    EXPECT_EQ(whole_edit.text(), "0");
    EXPECT_EQ(group.item_index(), -1);
    retype(real_edit, "5");
    retype(combo, "text");
    EXPECT_TRUE(group.select(1));
}

TEST_F(Bound_controls, the_colour_tells_the_focus_and_a_disabled_control) {
    auto& edit = form.add<TAutoStringEdit>("edit");
    auto& number = form.add<TAutoFloat32Edit>("number");
    TESK::Ustring text = "old";
    float value = 1;
    edit.bind_to(&text, nullptr);
    number.bind_to(&value, 2, nullptr);
    edit.focus();
    EXPECT_EQ(edit.colour(), focus_colour);
    EXPECT_EQ(edit.selected_text(), "old");
    edit.type_text("new");
    EXPECT_EQ(text, "old");
    number.focus();
    EXPECT_EQ(text, "new");
    EXPECT_EQ(edit.colour(), desktop_colour);
    EXPECT_EQ(number.colour(), focus_colour);
    number.set_enabled(false);
    EXPECT_EQ(number.colour(), disabled_colour);
    number.set_enabled(true);
    EXPECT_EQ(number.colour(), desktop_colour);
}

TEST_F(Bound_controls, choices_write_at_once_and_before_the_handler_hears_of_it) {
    bool flag = false;
    auto& box = form.add<TAutoCheckBox>("box", "box");
    box.bind_to(&flag, nullptr);
    bool seen = false;
    box.on_click = [&] { seen = flag; };
    EXPECT_TRUE(box.click());
    EXPECT_TRUE(flag && seen);

    std::int8_t byte = 3;
    auto& group = form.add<TAutoRadioGroup>("group", "group", std::vector<std::string>{"a", "b", "c"});
    group.bind_to(&byte, 2, nullptr);
    EXPECT_EQ(group.item_index(), 1);
    EXPECT_TRUE(group.select(2));
    EXPECT_EQ(byte, 4);

    std::uint32_t bits = 0x80000005;
    const char* const captions[] = {"value", "sum", "mean", nullptr};
    auto& list = form.add<TAutoBitCheckListBox>("bits");
    list.bind_to(&bits, captions, nullptr);
    EXPECT_TRUE(list.checked(0) && !list.checked(1) && list.checked(2));
    EXPECT_TRUE(list.check(1));
    EXPECT_EQ(bits, 7U);
    std::uint32_t other = 2;
    list.bind_to(&other, captions, nullptr);
    EXPECT_EQ(list.count(), 3);
    EXPECT_TRUE(!list.checked(0) && list.checked(1));
}

TEST_F(Bound_controls, lists_show_the_items_of_a_container_and_change_them) {
    TESK::Text_list items("one;two;three;four;", ';');
    TESK::Ustring chosen = "old";
    auto& combo = form.add<TAutoContainerComboBox>("combo");
    combo.bind_to(&chosen, &items, nullptr);
    EXPECT_EQ(combo.text(), "old");
    EXPECT_EQ(combo.items().size(), 4U);
    EXPECT_TRUE(combo.select(1));
    EXPECT_EQ(chosen, "two");

    auto& list = form.add<TAutoContainerListBox>("list");
    list.bind_to(&items, nullptr);
    EXPECT_TRUE(list.select_lines({1, 2}));
    list.move_selected_to(true);
    std::string all;
    EXPECT_EQ(items.to_string(all), "twoonethreefour");
    EXPECT_TRUE(list.select_lines({0, 3}));
    list.delete_selected();
    all.clear();
    EXPECT_EQ(items.to_string(all), "onethree");
    EXPECT_EQ(list.count(), 2);
}

TEST_F(Bound_controls, a_checked_list_shows_and_writes_the_marks_of_its_items) {
    TESK::Bidirectional_list names;
    for (const char* name : {"one.tvn", "two.tvn", "three.tvn"})
        names.append(new TESK::File_name(name));
    names.get_at(1)->set_checked(true);
    auto& list = form.add<TAutoContainerCheckListBox>("list");
    list.bind_to(&names, nullptr);
    EXPECT_EQ(list.line(2).text, "three");
    EXPECT_TRUE(!list.checked(0) && list.checked(1));
    EXPECT_TRUE(list.check(0) && list.check(1, false) && list.select(2));
    EXPECT_TRUE(names.get_at(0)->is_checked() && !names.get_at(1)->is_checked());
    EXPECT_TRUE(names.get_at(2)->is_selected() && !names.get_at(0)->is_selected());
}

class Number_bars : public Bound_controls {
protected:
    static constexpr std::uint32_t meter = 0x2000;
    static constexpr std::uint32_t centimeter = 0x2042;
    static constexpr std::uint32_t kilometer = 0x2003;
    float depth = 2;
    TESK::Valid_float32 valid{depth, meter, "depth", 1, 1.5, {0.5, 10, 0.1, 20}, "m", "Depth"};
};

TEST_F(Number_bars, the_record_and_the_light_follow_the_float_bar_only_when_it_is_left_and_updated) {
    auto& bar = form.add<TAutoFloat32EditBar>("bar");
    bar.bind_to(&valid, nullptr);
    EXPECT_EQ(bar.Description_label(), "Depth");
    EXPECT_EQ(bar.Units_label(), "m");
    EXPECT_EQ(bar.edit_field.text(), "2.0");
    EXPECT_FALSE(bar.help_button->visible());
    EXPECT_EQ(valid.status, Validation_status::good);
    retype(bar.edit_field, "15");
    EXPECT_EQ(depth, 2);
    elsewhere.focus();
    EXPECT_EQ(depth, 15);
    EXPECT_EQ(valid.status, Validation_status::good);
    EXPECT_EQ(bar.edit_field.colour(), focus_colour);
    bar.Update();
    EXPECT_EQ(valid.status, Validation_status::warning_high);
    EXPECT_EQ(bar.status_LED->picture(), status_light(10));
    EXPECT_TRUE(bar.cancel_button->click());
    EXPECT_FLOAT_EQ(depth, 1.5F);
    EXPECT_EQ(bar.edit_field.text(), "1.5");
    EXPECT_EQ(valid.status, Validation_status::warning_high);
}

TEST_F(Number_bars, choosing_a_unit_rereads_the_number_in_it) {
    const std::uint32_t choices[] = {meter, centimeter, kilometer, 0};
    valid.units_selectable = choices;
    auto& bar = form.add<TAutoFloat32EditBar>("bar");
    bar.bind_to(&valid, nullptr);
    EXPECT_TRUE(bar.units_combobox->visible());
    EXPECT_FALSE(bar.panel_units->visible());
    EXPECT_EQ(bar.units_combobox->items(), (std::vector<std::string>{"m", "cm", "km"}));
    EXPECT_EQ(bar.units_combobox->text(), "m");
    EXPECT_TRUE(bar.units_combobox->select(1));
    EXPECT_EQ(bar.edit_field.text(), "2.0");
    EXPECT_FLOAT_EQ(depth, 0.02F);
    depth = 3;
    bar.Update();
    EXPECT_EQ(bar.edit_field.text(), "300.0");
    EXPECT_TRUE(bar.cancel_button->click());
    EXPECT_EQ(bar.edit_field.text(), "150.0");
}

TEST_F(Number_bars, the_int_bar_writes_each_keystroke_and_leaving_brings_its_light_up_to_date) {
    std::int16_t days = 5;
    TESK::Valid_int16 valid_days(days, "days", 7, {1, 10, 1, 20}, "days", "Days");
    auto& bar = form.add<TAutoInt16EditBar>("bar");
    bar.bind_to(&valid_days, "C:\\help.htm");
    EXPECT_TRUE(bar.help_button->visible());
    retype(bar.edit_field, "30");
    EXPECT_EQ(days, 30);
    EXPECT_EQ(valid_days.status, Validation_status::good);
    elsewhere.focus();
    EXPECT_EQ(valid_days.status, Validation_status::error_high);
    EXPECT_EQ(bar.edit_field.colour(), desktop_colour);
    EXPECT_TRUE(bar.cancel_button->click());
    EXPECT_EQ(days, 7);
    bar.bind_to(nullptr, nullptr);
    EXPECT_EQ(bar.edit_field.text(), "0");
    EXPECT_EQ(bar.status_LED->picture(), status_light(0));
}

TEST(Status_controls, a_status_has_its_gem_and_bitmap) {
    TAutoGem gem("gem");
    for (const auto& [status, type, bitmap] : {std::tuple(0, Gem_type::Saphire, 4061),
                                               {1, Gem_type::Amethist, 4001},
                                               {3, Gem_type::Ruby, 4041},
                                               {6, Gem_type::Ruby, 4041},
                                               {9, Gem_type::Topaz, 4081},
                                               {12, Gem_type::Emerald, 4021},
                                               {14, Gem_type::Emerald, 4021},
                                               {13, Gem_type::Saphire, 4061}}) {
        gem.set_status(Validation_status(status));
        EXPECT_EQ(gem.gem_type(), type) << status;
        EXPECT_EQ(gem.bitmap_number(), bitmap) << status;
    }
    gem.set_gem_type(Gem_type(9));
    gem.set_setting(2);
    EXPECT_EQ(gem.bitmap_number(), 4078);
}

} // namespace
