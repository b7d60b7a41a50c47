// The letters that captions mark with "&", and which of them lead to two places at once.
#pragma once

#include <string>
#include <vector>

class TControl;

// A text without the "&" that mark a letter; "&&" is one that is shown.
std::string without_mnemonic(const std::string& text);
// The letter that the text marks, Latin or Cyrillic, in lower case; empty for none.
std::string mnemonic_of(const std::string& text);

// The captions below a control that mark the same letter and can be on view together: those on two pages of
// the same pages cannot, nor can what is hidden. Each is told as "s: &Save, E&xplore sites". Menus count with
// the captions in their bar, and what is in a menu among itself.
std::vector<std::string> colliding_mnemonics(TControl& window);
