// What puts the program's own words into the user's language. The toolkit asks it for every form that is
// about to appear, and for the texts of messages, dialogs and menus.
#pragma once

#include <string>

class TForm;

class Screen_language {
public:
    virtual ~Screen_language() = default;

    // What to show for a text; the text itself where there is nothing else. A text may have been made with
    // names or numbers in it.
    virtual std::string wording(const std::string& text) const = 0;
    virtual void prepare(TForm& form) = 0;
};

// The language in use; null shows everything as the program says it.
extern Screen_language* current_screen_language;

// The text in the user's language.
std::string worded(const std::string& text);
// The same for a text with a place for a name or a number, "%1".
std::string worded(const std::string& text, const std::string& inserted);
// The same for each line, or other part, of the text.
std::string worded_lines(const std::string& text, const std::string& between = "\n");
