// Shows the texts of a window in the user's language: at once, or one control a pass, so that a timer can do
// it beside the user's work.
#pragma once

#include "toolkit/control.h"
#include "translation/translations_phrases.h"
#include "trees/program_directory.h"
#include "trees/suite_directory.h"

#include <string>

// Translates the first control below the window that says something in another way than the language does:
// its text, where that is the program's own, its choices and its hint. What is typed into a control, listed
// in it or said to be data is left alone.
//
// `language` is the code that the phrases know it by; with none, and for what the language has no words for,
// the program's own words come back. False, with nothing
// done, without phrases. `changed` tells whether a control was translated: a pass that changed none is the
// last one needed until the program sets other texts.
bool translate_windows(TControl& window, const std::string& language,
                       const TESK::Translations_phrases* phrases, bool& changed);

// Translates the window's title and all that is in it at once: what passes that follow one another come to.
void show_in_language(TControl& window, const std::string& language,
                      const TESK::Translations_phrases& phrases);

// Appends the phrases of the program's translation files. They lie in folders "ANSI" and "Unicode" of the
// program's own folder, of the one that holds its family of programs, and of the one above, and in "Unicode"
// of the folder that the suite's programs share.
void load_program_translations(TESK::Translations_phrases& phrases, TESK::Program_directory& program,
                               TESK::Suite_directory& suite);
