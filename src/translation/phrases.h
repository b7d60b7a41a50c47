// The English phrases that are built into the suite's programs, each under a name of its own, and the table
// of all of them.
#pragma once

#include <span>
#include <string_view>

namespace TESK {

// The texts, in UTF-8: built_in::L_Crop_file is "Crop file".
namespace built_in {
#define TESK_PHRASE(key, text) inline constexpr const char* key = text;
#include "translation/phrase_list.inc"
#undef TESK_PHRASE
} // namespace built_in

// All texts, in the order of the list.
std::span<const char* const> built_in_phrases();

// The text of the phrase with that name ("L_Crop_file"), by which translation files call it too; null when
// there is none.
const char* find_built_in_phrase(std::string_view key);

} // namespace TESK
