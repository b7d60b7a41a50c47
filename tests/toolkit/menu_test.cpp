#include "form_support.h"
#include "toolkit/button.h"
#include "toolkit/check_box.h"
#include "toolkit/descriptor_watch.h"
#include "toolkit/label.h"
#include "toolkit/mnemonics.h"
#include "toolkit/page_control.h"
#include "toolkit/splitter.h"

TEST_F(Form_parts, a_menu_is_chosen_from_by_words_and_by_keys) {
    bool can_save = true;
    auto& menu = form_.add<TMainMenu>("menu");
    edit_.on_exit = [&] { log_ += edit_.text() + " "; };
    menu.set_items({{.text = "&File",
                     .items = {{.text = "&Save",
                                .on_click = [&] { log_ += "save "; },
                                .shortcut = "Ctrl+S",
                                .on_update = [&](Menu_item& item) { item.enabled = can_save; }},
                               {.text = "Open &recent",
                                .on_update =
                                    [&](Menu_item& item) {
                                        item.items = {
                                            {.text = "a && b.tvp", .on_click = [&] { log_ += "recent "; }}};
                                    }}}},
                    {.text = "&Help",
                     .items = {{.text = "Guide", .on_click = [&] { log_ += "help "; }, .shortcut = "F1"}}}});
    edit_.type_text("typed");
    EXPECT_TRUE(menu.choose("File|Save"));
    EXPECT_EQ(log_, "typed save ") << "what was typed is complete before";
    EXPECT_TRUE(edit_.focused());
    EXPECT_TRUE(edit_.key({.text = "s", .control = true}));
    EXPECT_TRUE(edit_.key({.code = Key_code::f1}));
    EXPECT_TRUE(menu.choose("File|Open recent|a & b.tvp")) << "made when the menu is opened";
    EXPECT_EQ(log_, "typed save typed save typed help typed recent ");
    can_save = false;
    log_.clear();
    EXPECT_FALSE(edit_.key({.text = "S", .control = true}));
    for (const char* nothing : {"File|Save", "File", "File|None", "Help|", ""})
        EXPECT_FALSE(menu.choose(nothing)) << nothing;
    EXPECT_EQ(log_, "");
}

TEST_F(Form_parts, a_form_is_activated_when_it_is_shown_and_when_the_user_comes_back_to_it) {
    form_.on_activate = [&] { log_ += "active "; };
    form_.close();
    EXPECT_FALSE(form_.activate());
    form_.on_show = [&] { log_ += "show "; };
    form_.show();
    form_.activate();
    desktop_.on_process_messages = [&] { EXPECT_FALSE(form_.activate()); };
    desktop_.process_messages();
    EXPECT_EQ(log_, "show active active ");
}

TEST_F(Form_parts, a_splitter_remembers_where_the_user_moved_it) {
    auto& splitter = form_.add<TSplitter>("splitter");
    splitter.on_move = [&] { log_ += std::to_string(splitter.position()) + " "; };
    splitter.set_position(250);
    splitter.move(250);
    splitter.move(-3);
    splitter.move(2000);
    EXPECT_EQ(log_, "0 1000 ");
}

TEST_F(Form_parts, a_watch_is_told_what_can_be_read_but_not_during_an_operation) {
    TDescriptor_watch watch(7);
    TDescriptor_watch other(8);
    watch.on_ready = [&] {
        log_ += "ready ";
        other.set_enabled(false);
    };
    watch.set_enabled(true);
    other.set_enabled(true);
    desktop_.on_process_messages = [&] { desktop_.descriptor_ready(7); };
    desktop_.process_messages();
    EXPECT_EQ(log_, "");
    desktop_.descriptor_ready(8);
    desktop_.descriptor_ready(7);
    EXPECT_EQ(log_, "ready ");
    EXPECT_FALSE(other.enabled());
}

TEST_F(Form_parts, letters_that_lead_to_two_places_at_once_are_found) {
    form_.add<TMainMenu>("menu").set_items(
        {{.text = "&File",
          .items = {{.text = "&\xD0\xAF"}, {.text = "\xD0\x9D&\xD1\x8F"}, {.text = "&\xD0\xBF"}}},
         {.text = "&Help"}});
    auto& pages = form_.add<TPageControl>("pages");
    auto& first = pages.add<TTabSheet>("first", "Fi&rst");
    auto& second = pages.add<TTabSheet>("second", "Second");
    first.add<TButton>("save", "&Save");
    second.add<TButton>("start", "&Start");
    second.add<TRadioGroup>("kind", "Kind", std::vector<std::string>{"&Raw", "Fish && chips"});
    auto& open = form_.add<TButton>("open", "Open &file");
    form_.add<TButton>("hidden", "&Help").set_visible(false);
    form_.add<TLabel>("name", "&Steps").set_names_next(true);
    const std::vector<std::string> expected = {"\xD1\x8F: &\xD0\xAF, \xD0\x9D&\xD1\x8F", "r: Fi&rst, &Raw",
                                               "f: &File, Open &file", "s: &Save, &Steps",
                                               "s: &Start, &Steps"};
    EXPECT_EQ(colliding_mnemonics(form_), expected);
    open.set_text("Open");
    EXPECT_EQ(colliding_mnemonics(form_).size(), 4U);
}
