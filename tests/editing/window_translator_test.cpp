#include "editing/window_translator.h"

#include "editing/number_edit_bars.h"
#include "support/phrases.h"
#include "support/temporary_folder.h"
#include "toolkit/button.h"
#include "toolkit/check_box.h"
#include "toolkit/combo_box.h"
#include "toolkit/label.h"
#include "toolkit/list_box.h"
#include "toolkit/page_control.h"
#include "translation/translation_files.h"

#include <gtest/gtest.h>

namespace {

// Passes until nothing changes; how many of them changed something. A walk that never ends is cut off.
int translate_all(TControl& window, const std::string& language, const TESK::Translations_phrases& phrases) {
    bool changed = true;
    int passes = 0;
    for (; passes < 10'000; ++passes) {
        EXPECT_TRUE(translate_windows(window, language, &phrases, changed));
        if (!changed)
            break;
    }
    return passes;
}

struct Window_translator : testing::Test {
    Window_translator() {
        add_phrase(phrases, "L_Run", {{"en", "Run"}, {"es", "Ejecutar"}, {"fr", "Lancer"}});
        for (const auto& [english, spanish] : {std::pair("Soil", "Suelo"),
                                               {"Total", "Total"},
                                               {"Current", "Actual"},
                                               {"Actual", "Real"},
                                               {"Empty", ""}})
            add_phrase(phrases, std::string("L_") + english, {{"en", english}, {"es", spanish}});
    }
    TESK::Translations_phrases phrases;
    TForm form{"form", "Run"};
    bool changed = false;
};

TEST_F(Window_translator, changes_one_control_a_pass_in_the_order_of_the_screen) {
    auto& page = form.add<TPageControl>("pages").add<TTabSheet>("page", "Soil");
    auto& unknown = page.add<TLabel>("unknown", "Of no phrase");
    auto& same = page.add<TLabel>("same", "Total");
    auto& blank = page.add<TLabel>("blank", "Empty");
    auto& group = page.add<TGroupBox>("group", "Current");
    auto& run = group.add<TButton>("run", "Run");
    run.set_hint("Soil");
    auto& hidden = form.add<TCheckBox>("hidden", "Actual");
    hidden.set_visible(false);

    const auto texts = [&] {
        return page.text() + "," + group.text() + "," + run.text() + "," + run.hint() + "," + hidden.text();
    };
    for (const char* expected : {"Suelo,Current,Run,Soil,Actual", "Suelo,Actual,Run,Soil,Actual",
                                 "Suelo,Actual,Ejecutar,Suelo,Actual", "Suelo,Actual,Ejecutar,Suelo,Real"}) {
        EXPECT_TRUE(translate_windows(form, "es", &phrases, changed));
        EXPECT_TRUE(changed);
        EXPECT_EQ(texts(), expected);
    }
    EXPECT_TRUE(translate_windows(form, "es", &phrases, changed));
    EXPECT_FALSE(changed);
    EXPECT_EQ(texts(), "Suelo,Actual,Ejecutar,Suelo,Real") << "a translation is not translated again";
    EXPECT_EQ(unknown.text() + same.text() + blank.text(), "Of no phraseTotalEmpty");
    EXPECT_EQ(form.text(), "Run");

    EXPECT_EQ(translate_all(form, "fr", phrases), 4) << "another language starts from the program's text";
    EXPECT_EQ(texts(), "Soil,Current,Lancer,Soil,Actual");
    run.set_text("Soil");
    EXPECT_EQ(translate_all(form, "es", phrases), 4);
    EXPECT_EQ(run.text(), "Suelo");
    EXPECT_EQ(translate_all(form, "", phrases), 4) << "the program's own words come back";
    EXPECT_EQ(texts(), "Soil,Current,Soil,Soil,Actual");
}

TEST_F(Window_translator, words_the_choices_that_are_the_programs_own_and_keeps_what_is_chosen) {
    auto& combo = form.add<TComboBox>("combo");
    combo.set_words({"Run", "Soil", "Total"});
    combo.set_item_index(1);
    EXPECT_GT(translate_all(form, "es", phrases), 0);
    EXPECT_EQ(combo.items(), (std::vector<std::string>{"Ejecutar", "Suelo", "Total"}));
    EXPECT_EQ(combo.text(), "Suelo");
    EXPECT_EQ(combo.item_index(), 1);
    translate_all(form, "", phrases);
    EXPECT_EQ(combo.text(), "Soil");
}

TEST_F(Window_translator, leaves_alone_what_is_typed_listed_or_data) {
    auto& edit = form.add<TEdit>("edit");
    auto& memo = form.add<TMemo>("memo");
    auto& combo = form.add<TComboBox>("combo");
    auto& list = form.add<TCheckListBox>("list");
    auto& data = form.add<TLabel>("data", "Soil");
    auto& data_choices = form.add<TRadioGroup>("data_choices", "Soil", std::vector<std::string>{"Soil"});
    auto& choices =
        form.add<TRadioGroup>("choices", "Soil", std::vector<std::string>{"Total", "Run", "Soil"});
    for (TCustomEdit* typed : {static_cast<TCustomEdit*>(&edit), static_cast<TCustomEdit*>(&memo),
                               static_cast<TCustomEdit*>(&combo)})
        typed->set_text("Soil");
    combo.set_items({"Soil"});
    list.set_lines({"Soil"});
    data.set_text_is_data(true);
    data_choices.set_text_is_data(true);
    edit.set_hint("Soil");
    choices.set_item_index(1);

    EXPECT_EQ(translate_all(form, "es", phrases), 2) << "the hint, and the choices at once";
    for (const TControl* kept :
         {static_cast<TControl*>(&edit), static_cast<TControl*>(&memo), static_cast<TControl*>(&combo),
          static_cast<TControl*>(&data), static_cast<TControl*>(&data_choices)})
        EXPECT_EQ(kept->text(), "Soil") << kept->name();
    EXPECT_EQ(combo.items().front() + list.line(0).text + data_choices.items().front(), "SoilSoilSoil");
    EXPECT_EQ(edit.hint(), "Suelo");
    EXPECT_EQ(choices.text(), "Suelo");
    EXPECT_EQ(choices.items(), (std::vector<std::string>{"Total", "Ejecutar", "Suelo"}));
    EXPECT_EQ(choices.item_index(), 1);
}

TEST_F(Window_translator, does_nothing_without_phrases_or_a_language) {
    auto& label = form.add<TLabel>("label", "Soil");
    const TESK::Translations_phrases empty;
    changed = true;
    EXPECT_FALSE(translate_windows(form, "es", nullptr, changed));
    EXPECT_FALSE(changed);
    EXPECT_EQ(translate_all(form, "es", empty), 0);
    EXPECT_EQ(translate_all(form, "", phrases), 0);
    EXPECT_EQ(translate_all(form, "ru", phrases), 0);
    EXPECT_EQ(label.text(), "Soil");
}

TEST_F(Window_translator, keeps_a_bound_caption_translated_when_its_value_is_shown_again) {
    float depth = 1;
    TESK::Valid_float32 number(depth, 0, "depth", 1, 1.5, {0.5, 10, 0.1, 20}, "m", "Soil");
    auto& bar = form.add<TAutoFloat32EditBar>("bar");
    bar.bind_to(&number, nullptr);
    translate_all(form, "es", phrases);
    bar.bind_to(&number, nullptr);
    EXPECT_EQ(bar.panel_caption->text(), "Suelo");
    EXPECT_EQ(bar.Description_label(), "Soil");
}

TEST(Translation_of_the_suite, is_read_from_the_folder_of_the_program_and_from_the_common_one) {
    const Temporary_folder folder;
    folder.write("Suite/Tilverra/project_editor.exe", "");
    std::filesystem::create_directories(folder.path("Suite/common"));
    std::filesystem::copy(EXAMPLES "/translations/ANSI", folder.path("Suite/Tilverra/ANSI"));
    std::filesystem::copy(EXAMPLES "/translations/Unicode", folder.path("Suite/common/Unicode"));
    const TESK::File_name program(folder.name("Suite/Tilverra/project_editor.exe").c_str());
    TESK::Program_directory program_folder(program);
    TVS::Suite_Directory suite(program);
    TESK::Translations_phrases phrases;
    load_program_translations(phrases, program_folder, suite);
    for (const char* language : {"es", "fr", "ru"})
        EXPECT_NE(phrases.find_translation("Save/Close", language), nullptr) << language;
}

} // namespace
