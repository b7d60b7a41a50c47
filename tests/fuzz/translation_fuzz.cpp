// Any bytes are a translation file, in either encoding: all texts that come of it are UTF-8, and every phrase
// finds its translation.
#include "foundation/code_page_1252.h"
#include "require.h"
#include "translation/translation_files.h"

namespace {

bool is_utf8(std::string_view text) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto lead = static_cast<unsigned char>(text[i]);
        const int behind = lead < 0x80 ? 0 : lead < 0xC2 ? -1 : lead < 0xE0 ? 1 : lead < 0xF0 ? 2 : 3;
        if (behind < 0 || i + static_cast<std::size_t>(behind) >= text.size())
            return false;
        for (int k = 0; k < behind; ++k)
            if ((static_cast<unsigned char>(text[++i]) & 0xC0) != 0x80)
                return false;
    }
    return true;
}

void check(const TESK::Translations_phrases& phrases) {
    for (const auto* node = phrases.head(); node != nullptr; node = node->next) {
        const auto& phrase = static_cast<const TESK::Translation&>(*node->item);
        require(is_utf8(phrase.phrase));
        for (const auto& translated : TESK::Items_of<TESK::Translation::Translated>(phrase.translations))
            require(is_utf8(translated.text) && is_utf8(translated.language));
        const TESK::Ustring* spanish = phrase.get_translation("es");
        if (spanish != nullptr && !spanish->empty())
            require(phrases.find_translation(phrase.phrase, "es") != nullptr);
    }
    phrases.find_translation("Save/Close", "ru");
}

} // namespace

void try_input(const std::string& text) {
    TESK::Translations_phrases phrases;
    // A text of the other encoding holds no zero bytes, or none that make sense.
    if (text.find('\0') == std::string_view::npos)
        TESK::add_ANSI_translations(text, phrases);
    else
        TESK::add_Unicode_translations(text, phrases);
    check(phrases);
}
