#include "translation/translations_phrases.h"

namespace TESK {

const Ustring* Translation::get_translation(const char* language) const {
    const auto* found = static_cast<const Translated*>(translations.find(language, false));
    return found == nullptr ? nullptr : &found->text;
}

const Ustring* Translations_phrases::find_translation(std::string_view text,
                                                      const std::string& language) const {
    if (text.empty() || language.empty())
        return nullptr;
    if (indexed_changes_ != changes_ || indexed_language_ != language)
        index_language(language);
    const auto found = index_.find(text);
    return found == index_.end() ? nullptr : found->second;
}

void Translations_phrases::index_language(const std::string& language) const {
    index_.clear();
    for (const auto* node = head(); node != nullptr; node = node->next) {
        const auto& phrase = static_cast<const Translation&>(*node->item);
        const Ustring* translation = phrase.get_translation(language.c_str());
        if (translation == nullptr || translation->empty())
            continue;
        index_.try_emplace(phrase.phrase, translation);
        if (phrase.native != nullptr)
            index_.try_emplace(phrase.native, translation);
        if (const Ustring* english = phrase.get_translation("en"))
            index_.try_emplace(*english, translation);
    }
    indexed_language_ = language;
    indexed_changes_ = changes_;
}

} // namespace TESK
