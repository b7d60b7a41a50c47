#include "form_support.h"
#include "recording_view.h"
#include "toolkit/button.h"
#include "toolkit/check_box.h"
#include "toolkit/page_control.h"

namespace {

struct Focus : Form_parts {
    void watch(TControl& control) {
        control.on_enter = [this, &control] { log_ += "+" + control.name() + " "; };
        control.on_exit = [this, &control] { log_ += "-" + control.name() + " "; };
    }
};
using Page_control = Form_parts;

TEST(Control, goes_before_or_after_its_view_and_is_drawn_by_one_at_a_time) {
    TForm form("form");
    auto& panel = form.add<TPanel>("panel");
    const Recording_view of_edit(panel.add<TEdit>("edit"));
    const Recording_view first(panel);
    {
        const Recording_view second(panel);
        EXPECT_TRUE(first.gone);
        panel.set_hint("hint");
        EXPECT_TRUE(first.changes.empty());
        EXPECT_EQ(second.changes.size(), 1u);
    }
    panel.set_hint("drawn by nobody");
    EXPECT_EQ(panel.view(), nullptr);
    form.remove(panel);
    EXPECT_TRUE(of_edit.gone);
    EXPECT_TRUE(form.children().empty());
}

TEST(Control, shown_elsewhere_stays_with_its_owner) {
    auto host = std::make_unique<TForm>("host");
    auto owner = std::make_unique<TForm>("owner");
    auto& pages = owner->add<TPanel>("pages");
    const Recording_view view(pages);
    host->host(pages);
    EXPECT_TRUE(view.gone);
    EXPECT_EQ(pages.form(), host.get());
    EXPECT_TRUE(owner->children().empty());
    pages.host(*host); // would be a circle
    EXPECT_TRUE(pages.children().empty());
    host.reset();
    EXPECT_EQ(pages.parent(), nullptr);
    host = std::make_unique<TForm>("host");
    host->host(pages);
    owner.reset();
    EXPECT_TRUE(host->children().empty());
}

TEST(Control, keeps_a_translation_on_view_until_the_program_says_something_else) {
    TButton button("run", "Run");
    const Recording_view view(button);
    button.translate_text("Ejecutar");
    button.translate_hint("Sin texto propio");
    button.set_text("Run");
    button.set_hint("");
    EXPECT_EQ(button.text() + button.hint(), "EjecutarSin texto propio");
    EXPECT_EQ(button.native_text() + button.native_hint(), "Run");
    EXPECT_EQ(view.changes.size(), 2u);

    button.translate_text("Lancer");
    EXPECT_EQ(button.native_text(), "Run") << "what was translated is the program's text, not a translation";
    button.set_text("Run GIS");
    EXPECT_EQ(button.text(), "Run GIS");
    EXPECT_EQ(button.native_text(), "Run GIS");

    TRadioGroup group("level", "Database", {"Arbitrary", "Master"});
    group.set_item_index(1);
    group.translate_items({"Libre", "Maestra"});
    group.translate_items({"one too few"});
    group.set_items({"Arbitrary", "Master"});
    EXPECT_EQ(group.items().back(), "Maestra");
    group.set_items({"Arbitrary", "Project"});
    EXPECT_EQ(group.items().back(), "Project");
    EXPECT_EQ(group.item_index(), 1);
}

TEST(Control, cannot_be_used_where_a_user_could_not_reach_it) {
    TForm form("form");
    auto& pages = form.add<TPageControl>("pages");
    auto& front = pages.add<TTabSheet>("front", "Front");
    auto& back = pages.add<TTabSheet>("back", "Back");
    auto& near = front.add<TPanel>("panel").add<TCheckBox>("near", "Near");
    auto& far = back.add<TCheckBox>("far", "Far");
    EXPECT_FALSE(near.click()) << "the form is not shown";
    form.show();

    EXPECT_TRUE(near.click());
    EXPECT_FALSE(far.click()) << "its page is behind";
    far.bring_to_front();
    EXPECT_TRUE(far.click());
    EXPECT_FALSE(near.click());
    near.bring_to_front();

    for (TControl* control = &near; control != &form; control = control->parent()) {
        control->set_enabled(false);
        EXPECT_FALSE(near.click()) << control->name() << " disabled";
        control->set_enabled(true);
        control->set_visible(false);
        EXPECT_FALSE(near.click()) << control->name() << " hidden";
        control->set_visible(true);
        pages.set_active_page(front);
    }
    EXPECT_TRUE(near.click());
    EXPECT_FALSE(near.checked());
}

TEST_F(Focus, leaves_innermost_first_and_then_enters_outermost_first) {
    auto& bar = form_.add<TPanel>("bar");
    auto& inner = bar.add<TEdit>("inner");
    auto& second = bar.add<TEdit>("second");
    auto& other = form_.add<TPanel>("other").add<TEdit>("last");
    EXPECT_TRUE(edit_.focused());
    inner.focus();
    form_.walk([&](TControl& control) {
        watch(control);
        return true;
    });
    second.type_text("x");
    EXPECT_EQ(log_, "-inner +second ");
    log_.clear();
    other.focus();
    EXPECT_EQ(log_, "-second -bar +other +last ");
    log_.clear();
    bar.focus();
    EXPECT_EQ(log_, "-last -other +bar +inner ");
}

TEST_F(Focus, is_left_before_a_button_acts_and_when_its_control_goes) {
    auto& button = form_.add<TButton>("button", "Button");
    watch(edit_);
    button.on_click = [&] { log_ += "click "; };
    button.click();
    EXPECT_EQ(log_, "-edit click ");

    log_.clear();
    edit_.focus();
    edit_.set_visible(false);
    EXPECT_EQ(log_, "+edit -edit ");
    EXPECT_EQ(form_.focused_control(), nullptr);
    EXPECT_FALSE(edit_.focus());

    button.focus();
    form_.remove(button);
    EXPECT_EQ(form_.focused_control(), nullptr);

    // What is left may take the next control away.
    edit_.set_visible(true);
    edit_.focus();
    auto& late = form_.add<TButton>("late", "Late");
    edit_.on_exit = [&] { late.set_enabled(false); };
    EXPECT_FALSE(late.click());
}

TEST_F(Page_control, shows_the_next_page_when_the_one_in_front_is_hidden) {
    auto& pages = form_.add<TPageControl>("pages");
    auto& first = pages.add<TTabSheet>("first", "First");
    auto& second = pages.add<TTabSheet>("second", "Second");
    auto& third = pages.add<TTabSheet>("third", "Third");
    pages.on_change = [&] { log_ += "change "; };
    third.on_show = [&] { log_ += "third "; };

    EXPECT_EQ(pages.active_page(), &first);
    pages.set_active_page(second);
    second.set_visible(false);
    EXPECT_EQ(pages.active_index(), 2);
    EXPECT_EQ(log_, "third ") << "the program's doing is no user's change";
    third.set_visible(false);
    EXPECT_EQ(pages.active_page(), &first);
    pages.set_active_page(third);
    EXPECT_EQ(pages.active_page(), &first);
    EXPECT_FALSE(pages.select_page(second));
    first.set_visible(false);
    EXPECT_EQ(pages.active_page(), nullptr);
    EXPECT_EQ(pages.active_index(), -1);

    log_.clear();
    first.set_visible(true);
    third.set_visible(true);
    auto& edit = first.add<TEdit>("inner");
    edit.on_exit = [&] { log_ += "left " + std::to_string(pages.active_index()) + " "; };
    edit.focus();
    EXPECT_TRUE(pages.select_page(third));
    EXPECT_EQ(log_, "left 0 third change ") << "what has the focus on a page is left before another comes";
    edit.bring_to_front();
    edit.focus();
    log_.clear();
    pages.set_active_page(third);
    EXPECT_EQ(log_, "left 0 third ");
    pages.remove(third);
    EXPECT_EQ(pages.active_page(), &first);
}

} // namespace
