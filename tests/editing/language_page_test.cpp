#include "frame_support.h"

#include "translation/translation_files.h"

#include <algorithm>

namespace {

// The frame with a language to choose: each text in brackets is a translation.
class Translated_form : public Parameter_file_form {
protected:
    Translated_form() {
        for (const char* text : {"Save/Close", "Cancel", "Save as", "Advanced", "Run it"}) {
            auto* phrase = new TESK::Translation(text);
            const std::string in_brackets = std::string("[") + text + "]";
            phrase->translations.append(new TESK::Translation::Translated("es", in_brackets));
            phrase->translations.append(new TESK::Translation::Translated("en", text));
            phrases.append(phrase);
        }
    }
    void bind_with_phrases(Tparameter_file_form& frame) {
        Tparameter_file_form::Editor editor;
        editor.parameters = &record;
        editor.file_name = &name;
        editor.file_given = true;
        editor.user_settings_file = &settings_folder;
        editor.phrases = &phrases;
        ASSERT_TRUE(frame.bind_to(editor));
        frame.show();
    }
    static void choose(Tparameter_file_form& frame, const std::string& language) {
        TRadioGroup& choice = frame.language.radiogroup_translation_target_language;
        const auto& items = choice.native_items();
        choice.bring_to_front();
        EXPECT_TRUE(
            choice.select(static_cast<int>(std::find(items.begin(), items.end(), language) - items.begin())));
    }
    static int translated(const Tparameter_file_form& frame) {
        int count = 0;
        for (const TControl* control :
             {static_cast<const TControl*>(&frame.ok_button), static_cast<const TControl*>(&frame.run_button),
              static_cast<const TControl*>(&frame.cancel_button),
              static_cast<const TControl*>(&frame.save_as_button),
              static_cast<const TControl*>(&frame.checkbox_advanced_mode)})
            count += control->text().starts_with('[') ? 1 : 0;
        return count;
    }

    TESK::Translations_phrases phrases;
};

TEST_F(Translated_form, is_translated_one_control_each_300_ms) {
    name = "C:\\work\\study.tvp";
    bind_with_phrases(form);
    EXPECT_TRUE(form.language.tabsheet_translation.visible());
    desktop.advance(3000);
    EXPECT_EQ(translated(form), 0);

    choose(form, "Spanish");
    EXPECT_EQ(translated(form), 0);
    for (int passes = 1; passes <= 4; ++passes) {
        desktop.advance(300);
        EXPECT_EQ(translated(form), passes);
    }
    desktop.advance(3000);
    form.show_run_button("Run it", "model.exe");
    desktop.advance(300);
    EXPECT_EQ(form.run_button.text(), "[Run it]") << "a text that comes later starts the passes anew";
}

TEST_F(Translated_form, in_the_native_language_is_translated_no_further) {
    name = "C:\\work\\study.tvp";
    bind_with_phrases(form);
    choose(form, "Spanish");
    desktop.advance(600);
    choose(form, "(native)");
    form.show_run_button("Run it", "model.exe");
    desktop.advance(3000);
    EXPECT_EQ(translated(form), 2);
    EXPECT_EQ(form.run_button.text(), "Run it");
    EXPECT_EQ(form.get_settings().language, "");
    choose(form, "English");
    desktop.advance(3000);
    EXPECT_EQ(translated(form), 0);
}

TEST_F(Parameter_file_form, a_language_is_shown_bit_by_bit_and_comes_back_with_the_file) {
    TESK::Translations_phrases phrases;
    for (const char* text : {"Save as", "Of the editor", "Beside the panel"}) {
        auto* phrase = new TESK::Translation(text);
        phrase->translations.append(new TESK::Translation::Translated("en", text));
        phrase->translations.append(
            new TESK::Translation::Translated("fr", (text + std::string("!")).c_str()));
        phrase->translations.append(
            new TESK::Translation::Translated("pt", (text + std::string("?")).c_str()));
        phrases.append(phrase);
    }
    TForm concrete("concrete");
    auto& inside = concrete.add<TPanel>("inside");
    TLabel& hosted = inside.add<TLabel>("hosted", "Of the editor");
    TLabel& beside = concrete.add<TLabel>("beside", "Beside the panel");
    name = "C:\\work\\study.tvp";
    Tparameter_file_form::Editor editor;
    editor.form = &concrete;
    editor.parameters = &record;
    editor.panel = &inside;
    editor.file_name = &name;
    editor.file_given = true;
    editor.user_settings_file = &settings_folder;
    editor.phrases = &phrases;
    ASSERT_TRUE(form.bind_to(editor));
    form.show();
    TRadioGroup& languages = form.language.radiogroup_translation_target_language;
    languages.bring_to_front();
    EXPECT_TRUE(languages.select(2));
    desktop.advance(299);
    EXPECT_EQ(form.save_as_button.text() + hosted.text() + beside.text(),
              "Save asOf the editorBeside the panel");
    desktop.advance(1200);
    EXPECT_EQ(form.save_as_button.text() + hosted.text() + beside.text(),
              "Save as!Of the editor!Beside the panel!");
    EXPECT_EQ(form.get_settings().language, "fr");
    EXPECT_TRUE(languages.select(10));
    form.language.edit_translation_other.focus();
    EXPECT_TRUE(form.language.edit_translation_other.type_text("pt"));
    desktop.advance(1500);
    EXPECT_EQ(form.save_as_button.text(), "Save as?");
    EXPECT_FALSE(form.has_changes());
    EXPECT_EQ(form.save(), Save_outcome::saved);

    Tparameter_file_form again{program};
    ASSERT_TRUE(again.bind_to(editor));
    EXPECT_EQ(again.language.radiogroup_translation_target_language.item_index(), 10);
    EXPECT_EQ(again.language.edit_translation_other.text(), "pt");
    desktop.advance(1500);
    EXPECT_EQ(again.save_as_button.text(), "Save as?");
    again.show();
    again.language.radiogroup_translation_target_language.bring_to_front();
    EXPECT_TRUE(again.language.radiogroup_translation_target_language.select(0));
    EXPECT_EQ(again.get_settings().language, "");
}

} // namespace
