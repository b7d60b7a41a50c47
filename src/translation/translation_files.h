// Reads translation files. Such a file is text: a line "L_key," opens a phrase, and the lines behind it each
// hold a language's code, a blank, and the phrase in that language. Lines that begin with "/*" are comments,
// and one that begins with "*/" ends the file.
//
// A file that is missing, unreadable, larger than 64 MiB or of another kind adds nothing, and damaged lines
// are passed over. All phrases of all files are kept, repeated ones too, up to 100,000 lines of a file.
#pragma once

#include "names/directory_name.h"
#include "translation/translations_phrases.h"

#include <string>
#include <string_view>
#include <vector>

namespace TESK {

// Appends the phrases of a text in code page 1252.
void add_ANSI_translations(std::string_view text, Translations_phrases& phrases);

// Appends the phrases of a text in 16-bit Unicode, high byte first, with or without a byte order mark. Halves
// of surrogate pairs that stand alone become U+FFFD.
void add_Unicode_translations(std::string_view text, Translations_phrases& phrases);

// The same for the text of a file.
void read_ANSI_translations(const std::string& file, Translations_phrases& phrases);
void read_Unicode_translations(const std::string& file, Translations_phrases& phrases);

// Appends the phrases of all files in the sub-folder "ANSI" of each of the first folders, and then of those
// in the sub-folder "Unicode" of each of the second ones. Within a sub-folder the files go by name.
void load_translations(Translations_phrases& phrases, const std::vector<Directory_name>& holding_ANSI,
                       const std::vector<Directory_name>& holding_Unicode);

} // namespace TESK
