// Phrases with their texts in some languages.
#pragma once

#include "translation/translations_phrases.h"

#include <string>
#include <utility>
#include <vector>

inline TESK::Translation& add_phrase(TESK::Translations_phrases& phrases, const std::string& key,
                                     const std::vector<std::pair<const char*, std::string>>& texts) {
    auto* phrase = new TESK::Translation(key);
    for (const auto& [language, text] : texts)
        phrase->translations.append(new TESK::Translation::Translated(language, text));
    phrases.append(phrase);
    return *phrase;
}
