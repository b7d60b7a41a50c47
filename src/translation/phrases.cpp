#include "translation/phrases.h"

#include <iterator>
#include <unordered_map>

namespace TESK {

namespace {

constexpr const char* texts[] = {
#define TESK_PHRASE(key, text) built_in::key,
#include "translation/phrase_list.inc"
#undef TESK_PHRASE
};

constexpr std::string_view keys[] = {
#define TESK_PHRASE(key, text) #key,
#include "translation/phrase_list.inc"
#undef TESK_PHRASE
};

} // namespace

std::span<const char* const> built_in_phrases() {
    return texts;
}

const char* find_built_in_phrase(std::string_view key) {
    static const auto index = [] {
        std::unordered_map<std::string_view, const char*> made;
        for (std::size_t i = 0; i < std::size(keys); ++i)
            made.emplace(keys[i], texts[i]);
        return made;
    }();
    const auto found = index.find(key);
    return found == index.end() ? nullptr : found->second;
}

} // namespace TESK
