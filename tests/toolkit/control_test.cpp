#include "recording_view.h"
#include "toolkit/button.h"
#include "toolkit/check_box.h"
#include "toolkit/edit.h"
#include "toolkit/headless_desktop.h"
#include "toolkit/page_control.h"

#include <gtest/gtest.h>

namespace {

// Writes down in one text what fires.
struct Log {
    void watch(TControl& control) {
        control.on_enter = [this, &control] { text += "+" + control.name() + " "; };
        control.on_exit = [this, &control] { text += "-" + control.name() + " "; };
    }
    std::string text;
};

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

TEST(Focus, leaves_innermost_first_and_then_enters_outermost_first) {
    TForm form("form");
    auto& bar = form.add<TPanel>("bar");
    auto& inner = bar.add<TEdit>("inner");
    auto& second = bar.add<TEdit>("second");
    auto& other = form.add<TPanel>("other").add<TEdit>("edit");
    form.show();
    EXPECT_TRUE(inner.focused());
    Log log;
    form.walk([&](TControl& control) {
        log.watch(control);
        return true;
    });
    second.type_text("x");
    EXPECT_EQ(log.text, "-inner +second ");
    log.text.clear();
    other.focus();
    EXPECT_EQ(log.text, "-second -bar +other +edit ");
    log.text.clear();
    bar.focus();
    EXPECT_EQ(log.text, "-edit -other +bar +inner ");
}

TEST(Focus, is_left_before_a_button_acts_and_when_its_control_goes) {
    TForm form("form");
    auto& edit = form.add<TEdit>("edit");
    auto& button = form.add<TButton>("button", "Button");
    form.show();
    Log log;
    log.watch(edit);
    button.on_click = [&] { log.text += "click "; };
    button.click();
    EXPECT_EQ(log.text, "-edit click ");

    log.text.clear();
    edit.focus();
    edit.set_visible(false);
    EXPECT_EQ(log.text, "+edit -edit ");
    EXPECT_EQ(form.focused_control(), nullptr);
    EXPECT_FALSE(edit.focus());

    button.focus();
    form.remove(button);
    EXPECT_EQ(form.focused_control(), nullptr);

    // What is left may take the next control away.
    edit.set_visible(true);
    edit.focus();
    auto& late = form.add<TButton>("late", "Late");
    edit.on_exit = [&] { late.set_enabled(false); };
    EXPECT_FALSE(late.click());
}

TEST(Keys, go_to_the_handler_then_the_control_then_outward_to_the_form) {
    TForm form("form");
    auto& panel = form.add<TPanel>("panel");
    auto& edit = panel.add<TEdit>("edit");
    auto& memo = form.add<TMemo>("memo");
    form.show();
    std::string log;
    const auto logs = [&log](const char* name, bool uses) {
        return [&log, name, uses](const Key&) {
            log += name;
            return uses;
        };
    };
    panel.on_key = logs("panel ", false);
    form.on_key = logs("form ", true);
    EXPECT_TRUE(edit.key({Key_code::enter, {}}));
    EXPECT_TRUE(memo.key({Key_code::enter, {}}));
    EXPECT_EQ(memo.text(), "\n") << "a memo uses the key itself";
    edit.on_key = logs("edit ", true);
    EXPECT_TRUE(edit.key({Key_code::character, "a"}));
    EXPECT_EQ(edit.text(), "");
    EXPECT_EQ(log, "panel form edit ");
}

TEST(Dropped_files, go_to_the_innermost_handler_around_where_they_fall) {
    TForm form("form");
    auto& bar = form.add<TPanel>("bar");
    auto& edit = bar.add<TEdit>("edit");
    form.show();
    EXPECT_FALSE(edit.accepts_files() || edit.drop_files({"C:\\a"}));
    std::vector<std::string> dropped;
    bar.on_drop_files = [&](const std::vector<std::string>& names) { dropped = names; };
    EXPECT_TRUE(edit.accepts_files() && edit.drop_files({"C:\\a", "C:\\b"}));
    EXPECT_EQ(dropped, (std::vector<std::string>{"C:\\a", "C:\\b"}));
    bar.set_enabled(false);
    EXPECT_FALSE(edit.drop_files({"C:\\a"}));
}

TEST(Page_control, shows_the_next_page_when_the_one_in_front_is_hidden) {
    TForm form("form");
    auto& pages = form.add<TPageControl>("pages");
    auto& first = pages.add<TTabSheet>("first", "First");
    auto& second = pages.add<TTabSheet>("second", "Second");
    auto& third = pages.add<TTabSheet>("third", "Third");
    form.show();
    std::string log;
    pages.on_change = [&] { log += "change "; };
    third.on_show = [&] { log += "third "; };

    EXPECT_EQ(pages.active_page(), &first);
    pages.set_active_page(second);
    second.set_visible(false);
    EXPECT_EQ(pages.active_index(), 2);
    EXPECT_EQ(log, "third ") << "the program's doing is no user's change";
    third.set_visible(false);
    EXPECT_EQ(pages.active_page(), &first);
    pages.set_active_page(third);
    EXPECT_EQ(pages.active_page(), &first);
    EXPECT_FALSE(pages.select_page(second));
    first.set_visible(false);
    EXPECT_EQ(pages.active_page(), nullptr);
    EXPECT_EQ(pages.active_index(), -1);

    log.clear();
    first.set_visible(true);
    third.set_visible(true);
    EXPECT_TRUE(pages.select_page(third));
    EXPECT_EQ(log, "third change ");
    pages.remove(third);
    EXPECT_EQ(pages.active_page(), &first);
}

TEST(Page_control, leaves_what_has_the_focus_on_a_page_before_another_comes) {
    TForm form("form");
    auto& pages = form.add<TPageControl>("pages");
    auto& edit = pages.add<TTabSheet>("first", "First").add<TEdit>("edit");
    auto& second = pages.add<TTabSheet>("second", "Second");
    form.show();
    edit.focus();
    std::string pages_left;
    edit.on_exit = [&] { pages_left += std::to_string(pages.active_index()); };
    EXPECT_TRUE(pages.select_page(second));
    EXPECT_EQ(pages_left, "0");
}

} // namespace
