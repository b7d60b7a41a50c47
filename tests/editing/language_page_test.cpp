#include "frame_support.h"
#include "support/phrases.h"

#include <algorithm>

namespace {

// The frame with languages to choose: a text in brackets is Spanish, one with "!" French, which lacks words.
class Language_page_test : public Parameter_file_form {
protected:
    Language_page_test() {
        for (const char* text :
             {"Save/Close", "Save as", "Run it", "Beside the panel", "Enter or select file to edit",
              "Unsaved changes", "Save the changes to %1?", "Tilverra project", "Save %1 as"}) {
            std::vector<std::pair<const char*, std::string>> texts = {
                {"en", text}, {"es", std::string("[") + text + "]"}, {"fr", text + std::string("!")}};
            if (texts[0].second == "Save/Close")
                texts.pop_back();
            add_phrase(phrases, text, texts);
        }
        name = "C:\\work\\study.tvp";
    }
    void bind_with_phrases(Tparameter_file_form& frame) {
        Tparameter_file_form::Editor offered = editor(&inside, !name.ends_with("noname.tvp"));
        offered.form = &concrete;
        offered.phrases = &phrases;
        ASSERT_TRUE(frame.bind_to(offered));
        frame.show();
    }
    static void choose(Tparameter_file_form& frame, const std::string& language) {
        TRadioGroup& choice = frame.language.radiogroup_translation_target_language;
        const auto& items = choice.native_items();
        choice.bring_to_front();
        EXPECT_TRUE(
            choice.select(static_cast<int>(std::find(items.begin(), items.end(), language) - items.begin())));
    }
    std::string shown(const Tparameter_file_form& frame) const {
        return frame.ok_button.text() + " " + frame.save_as_button.text() + " " + beside.text();
    }

    TESK::Translations_phrases phrases;
    TForm concrete{"concrete"};
    TPanel& inside = concrete.add<TPanel>("inside");
    TLabel& beside = concrete.add<TLabel>("beside", "Beside the panel");
};

TEST_F(Language_page_test, a_chosen_language_is_on_view_at_once_and_the_native_one_comes_back) {
    bind_with_phrases(form);
    EXPECT_TRUE(form.language.tabsheet_translation.visible());
    const std::string native = shown(form);
    choose(form, "Spanish");
    EXPECT_EQ(shown(form), "[Save/Close] [Save as] [Beside the panel]");
    EXPECT_EQ(form.text(), "[Tilverra project]: C:\\work\\study.tvp");
    choose(form, "French");
    EXPECT_EQ(shown(form), "Save/Close Save as! Beside the panel!") << "no mixture of languages";
    EXPECT_EQ(desktop.language(), "fr") << "what the desktop says itself";
    choose(form, "(native)");
    EXPECT_EQ(shown(form), native);
    EXPECT_EQ(desktop.language(), "");
    EXPECT_FALSE(form.has_changes());
}

TEST_F(Language_page_test, what_appears_later_is_translated_bit_by_bit) {
    bind_with_phrases(form);
    choose(form, "Spanish");
    desktop.advance(3000);
    form.show_run_button("Run it", "model.exe");
    form.ok_button.set_text("Save as");
    EXPECT_EQ(form.run_button.text(), "Run it");
    desktop.advance(300);
    EXPECT_EQ(form.ok_button.text() + form.run_button.text(), "[Save as]Run it");
    desktop.advance(300);
    EXPECT_EQ(form.run_button.text(), "[Run it]");
    beside.set_text("Run it"); // in a handler, say, which follows what a user does
    form.edit_description.focus();
    desktop.advance(300);
    EXPECT_EQ(beside.text(), "[Run it]");
}

TEST_F(Language_page_test, messages_and_dialogs_speak_the_language_too) {
    bind_with_phrases(form);
    choose(form, "Spanish");
    record.STATSGO_path = "changed";
    desktop.expect_message("[Unsaved changes]", "[Save the changes to C:\\work\\study.tvp?]",
                           Modal_result::cancel);
    EXPECT_TRUE(form.cancel_button.click());
    desktop.expect_file_dialog("[Save [Tilverra project] as]", {});
    EXPECT_TRUE(form.save_as_button.click());
}

TEST_F(Language_page_test, the_language_is_the_users_from_the_first_dialog_on_whatever_file_is_opened) {
    bind_with_phrases(form);
    form.language.radiogroup_translation_target_language.bring_to_front();
    choose(form, "(Other)");
    retype(form.language.edit_translation_other, "es");
    EXPECT_TRUE(form.close()); // without a save
    Tparameter_file_form again{program};
    name = "C:\\work\\noname.tvp";
    desktop.expect_modal("recent_file_selector_form", [this](TForm& shown) {
        EXPECT_EQ(shown.text(), "[Enter or select file to edit]");
        retype(selector.selected_fileeditbar.filename_edit, "C:\\work\\another.tvp");
        selector.ok_button.click();
    });
    bind_with_phrases(again);
    EXPECT_EQ(shown(again), "[Save/Close] [Save as] [Beside the panel]");
    EXPECT_EQ(again.language.radiogroup_translation_target_language.item_index(), 3);
    choose(again, "(native)");
    Tparameter_file_form third{program};
    bind_with_phrases(third);
    EXPECT_EQ(third.ok_button.text(), "Save/Close");
}

// As a program of before would have left it: the language stands with the file alone.
TEST_F(Language_page_test, a_language_that_was_chosen_for_the_file_holds_until_the_user_chooses_another) {
    TESK::User_settings settings;
    settings.language = "pt";
    settings_folder.save(settings, name);
    bind_with_phrases(form);
    EXPECT_EQ(form.language.radiogroup_translation_target_language.item_index(), 10);
    EXPECT_EQ(form.language.edit_translation_other.text(), "pt");
    choose(form, "Spanish");
    EXPECT_EQ(form.save(), Save_outcome::saved);
    settings_folder.load(settings, name);
    EXPECT_EQ(settings.language, "es");
}

} // namespace
