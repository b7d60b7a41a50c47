#include "translation/translation_files.h"

#include "support/temporary_folder.h"

#include <gtest/gtest.h>
#include <map>

namespace TESK {
namespace {

const char* const russian_run = "\xD0\x97\xD0\xB0\xD0\xBF\xD1\x83\xD1\x81\xD0\xBA";

// All that the list holds: "key{language:text;...}" for each phrase.
std::string contents(const Translations_phrases& phrases) {
    std::string result;
    for (const auto* node = phrases.head(); node != nullptr; node = node->next) {
        const auto& phrase = static_cast<const Translation&>(*node->item);
        result += phrase.phrase + "{";
        for (const auto* at = phrase.translations.head(); at != nullptr; at = at->next) {
            const auto& translated = static_cast<const Translation::Translated&>(*at->item);
            result += translated.language + ":" + translated.text + ";";
        }
        result += "}";
    }
    return result;
}

std::string big_endian(const std::u16string& text) {
    std::string bytes;
    for (const char16_t unit : text) {
        bytes += static_cast<char>(unit >> 8);
        bytes += static_cast<char>(unit & 0xFF);
    }
    return bytes;
}

// Each case says what it is, the bytes of the file, and what comes of reading it.
template <class Read, class Cases>
void expect_contents(Read read, const Cases& cases) {
    const Temporary_folder folder;
    for (const auto& [what, file, result] : cases) {
        Translations_phrases phrases;
        read(folder.write("file.txt", file), phrases);
        EXPECT_EQ(contents(phrases), result) << what;
    }
}

TEST(Translation_files, in_the_code_page_are_read_line_by_line) {
    const std::tuple<const char*, std::string, const char*> cases[] = {
        {"usual", "L_Run,\nen Run\nes Ejecutar ya\n\nL_Soil\nes Suelo",
         "L_Run{en:Run;es:Ejecutar ya;}L_Soil{es:Suelo;}"},
        {"line ends of the other kind", "L_Run, note\r\nen Run\r\n\r\n", "L_Run{en:Run;}"},
        {"before the first phrase", "es Nada\nL_Run,\nes Ejecutar\n", "L_Run{es:Ejecutar;}"},
        {"comments and the end", "/* L_x,\nL_Run,\n/*es no\nes Ejecutar\n*/ end\nL_Soil,\n",
         "L_Run{es:Ejecutar;}"},
        {"no blank", "L_Run,\nEjecutar\nes\tno\n", "L_Run{}"},
        {"blanks are kept", "L_Run,\nes  a \n", "L_Run{es: a ;}"},
        {"letters above 127", "L_Year,\nes A\xF1o \x80\n", "L_Year{es:A\xC3\xB1o \xE2\x82\xAC;}"},
        {"repeated", "L_Run,\nL_Run,\n", "L_Run{}L_Run{}"},
        {"not such a file",
         std::string("\x7F"
                     "ELF\0\xFF\n\0\0 \n",
                     11),
         ""}};
    expect_contents(read_ANSI_translations, cases);
}

TEST(Translation_files, in_unicode_keep_every_letter) {
    const std::u16string run = u"L_Run,\nru \u0417\u0430\u043F\u0443\u0441\u043A";
    const std::string expected = std::string("L_Run{ru:") + russian_run + ";}";
    const std::tuple<const char*, std::string, std::string> cases[] = {
        {"usual", big_endian(run), expected},
        {"byte order mark", big_endian(u"\uFEFF" + run), expected},
        {"carriage returns, an odd byte", big_endian(u"L_Run,\r\n" + run.substr(7) + u"\r\n") + "x",
         expected},
        {"a surrogate pair", big_endian(u"L_x,\nru \U0001F33E"), "L_x{ru:\xF0\x9F\x8C\xBE;}"},
        {"halves of pairs", big_endian(u"L_x,\nru ") + "\xDC\x01\xD8\x01",
         "L_x{ru:\xEF\xBF\xBD\xEF\xBF\xBD;}"},
        {"low bytes first", "\xFF\xFEL\0_\0x\0", ""},
        {"the code page", "L_Run,\nru Zapusk\n", ""},
        {"one byte", "L", ""}};
    expect_contents(read_Unicode_translations, cases);
}

TEST(Translation_files, that_cannot_be_or_are_no_texts_add_nothing) {
    const Temporary_folder folder;
    Translations_phrases phrases;
    folder.write("huge.txt", "L_Run,\n");
    std::filesystem::resize_file(folder.path("huge.txt"), (64u << 20) + 1);
    for (const std::string& name : {folder.name("missing.txt"), folder.name(), folder.name("huge.txt")}) {
        read_ANSI_translations(name, phrases);
        read_Unicode_translations(name, phrases);
    }
    load_translations(phrases, {Directory_name(folder.name("missing"))}, {Directory_name("")});
    EXPECT_EQ(contents(phrases), "");

    std::string many;
    for (int i = 0; i < 150'000; ++i)
        many += "L_x\n";
    read_ANSI_translations(folder.write("many.txt", many), phrases);
    EXPECT_EQ(phrases.count(), 100'000u);

    Translations_phrases of_long_line;
    read_ANSI_translations(folder.write("long.txt", "L_x,\nes " + std::string(1'000'000, 'y')), of_long_line);
    EXPECT_EQ(of_long_line.find_translation("L_x", "es")->size(), 1'000'000u);
}

TEST(Translation_files, are_read_folder_by_folder_and_by_name) {
    const Temporary_folder folder;
    folder.write("one/ANSI/b.txt", "L_b,\n");
    folder.write("one/ANSI/a.lng", "L_a,\n");
    folder.write("one/ANSI/below/c.txt", "L_below,\n");
    folder.write("two/ANSI/a.txt", "L_two,\n");
    folder.write("two/Unicode/a.txt", big_endian(u"L_wide,\n"));
    folder.write("common/ANSI/a.txt", "L_never,\n");
    folder.write("common/Unicode/a.txt", big_endian(u"L_common,\n"));
    const std::vector<Directory_name> folders = {Directory_name(folder.name("one")),
                                                 Directory_name(folder.name("two"))};
    std::vector<Directory_name> with_common = folders;
    with_common.emplace_back(folder.name("common"));

    Translations_phrases phrases;
    load_translations(phrases, folders, with_common);
    EXPECT_EQ(contents(phrases), "L_a{}L_b{}L_two{}L_wide{}L_common{}");
}

TEST(Translation_files, of_the_suite_are_whole_and_say_the_same) {
    const std::string folder = platform::name_from_host_path(EXAMPLES "/translations");
    std::map<std::string, Translations_phrases> lists;
    read_ANSI_translations(folder + "\\ANSI\\spanish.txt", lists["es"]);
    read_ANSI_translations(folder + "\\ANSI\\french.txt", lists["fr"]);
    read_Unicode_translations(folder + "\\Unicode\\russian.txt", lists["ru"]);
    std::map<std::string, std::string> keys;
    for (const auto& [language, phrases] : lists) {
        std::map<std::string, std::string> key_of_text;
        for (const auto* node = phrases.head(); node != nullptr; node = node->next) {
            const auto& phrase = static_cast<const Translation&>(*node->item);
            const Ustring* english = phrase.get_translation("en");
            const Ustring* translation = phrase.get_translation(language.c_str());
            ASSERT_TRUE(english && translation) << phrase.phrase;
            EXPECT_TRUE(phrase.native == nullptr || *english == phrase.native) << phrase.phrase;
            EXPECT_FALSE(translation->empty()) << phrase.phrase;
            EXPECT_TRUE(key_of_text.emplace(*english, phrase.phrase).second) << *english << " twice";
            for (const char* sign : {"&", "%1", "%2", "%3"})
                EXPECT_EQ(english->contains(sign), translation->contains(sign)) << phrase.phrase;
            EXPECT_FALSE(translation->contains("\xEF\xBF\xBD")) << phrase.phrase;
            keys[language] += phrase.phrase + " ";
        }
    }
    EXPECT_EQ(keys["es"], keys["ru"]);
    EXPECT_EQ(keys["es"], keys["fr"]);
    EXPECT_GT(lists["es"].count(), 300u);
    EXPECT_EQ(*lists["ru"].find_translation("Run", "ru"), russian_run);
    EXPECT_EQ(*lists["es"].find_translation("Year", "es"), "A\xC3\xB1o");
    EXPECT_EQ(*lists["fr"].find_translation("Weather", "fr"), "M\xC3\xA9t\xC3\xA9o");
}

} // namespace
} // namespace TESK
