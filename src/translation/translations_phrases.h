// Phrases and their translations into other languages, and the list of them that a text is looked up in. All
// texts are UTF-8.
#pragma once

#include "foundation/association_list.h"
#include "foundation/ustring.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace TESK {

// One phrase. What stands in a list of phrases must not change once a text has been looked up there.
class Translation : public Association {
public:
    // What the phrase is in one language.
    class Translated : public Association {
    public:
        Translated(std::string_view in_language, std::string_view translation)
            : language(std::string(in_language)), text(std::string(translation)) {}

        const char* get_key() const override { return language.c_str(); }

        Ustring language; // its two-letter code, as a rule
        Ustring text;
    };

    explicit Translation(std::string_view key) : phrase(std::string(key)) {}

    const char* get_key() const override { return phrase.c_str(); }
    bool is_key_case_sensitive() const override { return true; }

    // The text in the language, whose code may be in any case; null when there is none, or for no language.
    const Ustring* get_translation(const char* language) const;

    Ustring phrase;               // the key
    const char* native = nullptr; // the built-in English text, where the key is that of a built-in phrase
    std::uint32_t flag = 0;
    Association_list translations; // of Translated, one for each language
};

// A list of Translation items.
class Translations_phrases : public Association_list {
public:
    // What to show for a text in a language. The text stands for a phrase when it is, byte for byte, the
    // phrase's key, its native text or its translation into English; of several phrases the first one that
    // has a translation serves. Null when there is none, or when it is empty. The cost does not grow with the
    // list.
    const Ustring* find_translation(std::string_view text, const std::string& language) const;
    // The same for a text that may have been made with names or numbers in it: it is also recognised as a
    // phrase with places for these ("There is no file %1.", "%1 of %2 done"), and what stands there is worded
    // likewise. A short phrase that begins with a place is known only by a number there. Of several phrases
    // the one that says most serves. The text itself when none does.
    std::string wording(std::string_view text, const std::string& language) const;

private:
    // A phrase with places: what it says between them, one text more than there are places.
    struct Pattern {
        std::vector<std::string> said;
        const Ustring* translation;
    };

    void index_language(const std::string& language) const;

    // What the texts become in one language. Holds as long as the list's own count of changes is the same.
    mutable std::unordered_map<std::string_view, const Ustring*> index_;
    mutable std::vector<Pattern> patterns_; // those that say most first
    mutable std::string indexed_language_;
    mutable std::uint64_t indexed_changes_ = 0;
};

} // namespace TESK
