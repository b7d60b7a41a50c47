#include "translation/translations_phrases.h"

#include "support/phrases.h"
#include "translation/phrases.h"

#include <gtest/gtest.h>
#include <set>

namespace TESK {
namespace {

std::string found(const Translations_phrases& phrases, const char* text, const char* language) {
    const Ustring* translation = phrases.find_translation(text, language);
    return translation == nullptr ? "(none)" : *translation;
}

TEST(Translations_phrases, finds_a_phrase_by_key_native_text_or_english) {
    Translations_phrases phrases;
    add_phrase(phrases, "L_Run", {{"es", "Ejecutar"}, {"en", "Run"}}).native = "Run it";
    add_phrase(phrases, "Soil", {{"es", "Suelo"}});
    add_phrase(phrases, "L_Empty", {{"en", "Empty"}, {"es", ""}});

    const char* cases[][3] = {
        {"L_Run", "es", "Ejecutar"},  {"Run it", "es", "Ejecutar"}, {"Run", "es", "Ejecutar"},
        {"Run", "ES", "Ejecutar"},    {"L_Run", "en", "Run"},       {"Soil", "es", "Suelo"},
        {"run", "es", "(none)"},      {"&Run", "es", "(none)"},     {"Run ", "es", "(none)"},
        {"Ejecutar", "es", "(none)"}, {"Run", "fr", "(none)"},      {"Run", "", "(none)"},
        {"Soil", "en", "(none)"},     {"", "es", "(none)"},         {"Empty", "es", "(none)"},
        {"L_Run,", "es", "(none)"}};
    for (const auto& [text, language, result] : cases)
        EXPECT_EQ(found(phrases, text, language), result) << text << " in " << language;
}

TEST(Translations_phrases, words_a_text_by_the_phrase_it_was_made_of) {
    Translations_phrases phrases;
    add_phrase(phrases, "L_1", {{"en", "There is no file %1."}, {"es", "No existe %1."}});
    add_phrase(phrases, "L_2", {{"en", "The value %1."}, {"es", "El valor %1."}});
    add_phrase(phrases, "L_3", {{"en", "must range from %1 - %2"}, {"es", "va hasta %2 desde %1"}});
    add_phrase(phrases, "L_4", {{"en", "%1 of %2 done"}, {"es", "%1 de %2"}});
    add_phrase(phrases, "L_5", {{"en", "The value must be one of: %1."}, {"es", "Uno de: %1."}});
    add_phrase(phrases, "L_6", {{"en", "%1 is newer than the output"}, {"es", "%1 es m\u00E1s nuevo"}});
    const char* cases[][2] = {{"There is no file C:\a.tvn.", "No existe C:\a.tvn."},
                              {"The value must range from 0 - %1.", "El valor va hasta %1 desde 0."},
                              {"The value must be one of: wet, dry.", "Uno de: wet, dry."},
                              {"1,024 of 3,000 done", "1,024 de 3,000"},
                              {"None of 3 done", "None of 3 done"},
                              {"a.sil is newer than the output", "a.sil es m\u00E1s nuevo"},
                              {"There is no file", "There is no file"}};
    for (const auto& [text, result] : cases)
        EXPECT_EQ(phrases.wording(text, "es"), result);
    EXPECT_EQ(phrases.wording("The value 1.", ""), "The value 1.");
}

TEST(Translations_phrases, of_repeated_phrases_the_first_with_a_translation_serves) {
    Translations_phrases phrases;
    EXPECT_EQ(found(phrases, "Run", "es"), "(none)");
    add_phrase(phrases, "L_Run", {{"en", "Run"}, {"es", "Ejecutar"}});
    add_phrase(phrases, "L_Run", {{"en", "Run"}, {"es", "Correr"}, {"ru", "Zapusk"}});
    EXPECT_EQ(phrases.count(), 2u);
    EXPECT_EQ(found(phrases, "Run", "es"), "Ejecutar");
    EXPECT_EQ(found(phrases, "Run", "ru"), "Zapusk") << "the file of another language must not hide it";

    phrases.remove_at(0);
    EXPECT_EQ(found(phrases, "Run", "es"), "Correr") << "a look-up follows the list's changes";
}

TEST(Built_in_phrases, stand_in_their_order_and_are_known_by_their_keys) {
    const auto table = built_in_phrases();
    ASSERT_EQ(table.size(), 833u);
    EXPECT_STREQ(table[832], "Soil slope steepness mapped");
    EXPECT_EQ(std::set<std::string>(table.begin(), table.end()).size(), table.size());

    EXPECT_STREQ(find_built_in_phrase("L_Crop_file"), built_in::L_Crop_file);
    EXPECT_EQ(find_built_in_phrase("Crop file"), nullptr);
}

} // namespace
} // namespace TESK
