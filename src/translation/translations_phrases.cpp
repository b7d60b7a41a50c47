#include "translation/translations_phrases.h"

#include <algorithm>
#include <optional>

namespace TESK {

namespace {

std::string place(std::size_t number) {
    return '%' + std::to_string(number);
}

// What a phrase says between "%1", "%2"...; one text where it has no places.
std::vector<std::string> split_at_places(std::string_view phrase) {
    std::vector<std::string> said;
    for (std::size_t end = 0; end != std::string_view::npos;) {
        end = phrase.find(place(said.size() + 1));
        said.emplace_back(phrase.substr(0, end));
        phrase.remove_prefix(end == std::string_view::npos ? 0 : end + 2);
    }
    return said;
}

std::size_t length_of(const std::vector<std::string>& said) {
    std::size_t length = 0;
    for (const std::string& text : said)
        length += text.size();
    return length;
}

// What stands in the places, if the text was made of the phrase.
std::optional<std::vector<std::string_view>> values_in(std::string_view text,
                                                       const std::vector<std::string>& said) {
    if (text.size() < length_of(said) || !text.starts_with(said.front()) || !text.ends_with(said.back()))
        return {};
    text.remove_suffix(said.back().size());
    text.remove_prefix(said.front().size());
    std::vector<std::string_view> values;
    for (std::size_t i = 1; i + 1 < said.size(); ++i) {
        const std::size_t end = text.find(said[i]);
        if (end == std::string_view::npos)
            return {};
        values.push_back(text.substr(0, end));
        text.remove_prefix(end + said[i].size());
    }
    values.push_back(text);
    constexpr std::size_t telling = 12; // letters
    const bool may_begin = !said.front().empty() || length_of(said) >= telling ||
                           values.front().find_first_not_of("0123456789,") == std::string_view::npos;
    return may_begin ? std::optional(values) : std::nullopt;
}

} // namespace

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

std::string Translations_phrases::wording(std::string_view text, const std::string& language) const {
    if (const Ustring* translation = find_translation(text, language))
        return *translation;
    if (text.empty() || language.empty())
        return std::string(text);
    for (const Pattern& pattern : patterns_) {
        const auto values = values_in(text, pattern.said);
        if (!values || length_of(pattern.said) == 0)
            continue;
        const std::string_view translation(*pattern.translation);
        std::string made;
        for (std::size_t i = 0; i < translation.size(); ++i) {
            const bool is_place = translation[i] == '%' && i + 1 < translation.size();
            const auto number = static_cast<std::size_t>(is_place ? translation[i + 1] - '1' : -1);
            if (number < values->size()) {
                made += wording((*values)[number], language);
                ++i;
            } else {
                made += translation[i];
            }
        }
        return made;
    }
    return std::string(text);
}

void Translations_phrases::index_language(const std::string& language) const {
    index_.clear();
    patterns_.clear();
    for (const auto* node = head(); node != nullptr; node = node->next) {
        const auto& phrase = static_cast<const Translation&>(*node->item);
        const Ustring* translation = phrase.get_translation(language.c_str());
        if (translation == nullptr || translation->empty())
            continue;
        index_.try_emplace(phrase.phrase, translation);
        if (phrase.native != nullptr)
            index_.try_emplace(phrase.native, translation);
        const Ustring* english = phrase.get_translation("en");
        if (english == nullptr)
            continue;
        index_.try_emplace(*english, translation);
        if (std::vector<std::string> said = split_at_places(*english); said.size() > 1)
            patterns_.push_back({std::move(said), translation});
    }
    std::stable_sort(patterns_.begin(), patterns_.end(), [](const Pattern& a, const Pattern& b) {
        return length_of(a.said) > length_of(b.said);
    });
    indexed_language_ = language;
    indexed_changes_ = changes_;
}

} // namespace TESK
