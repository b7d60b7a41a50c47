// What the user has arranged on the screens, which is there again the next time: where a splitter stands,
// which columns a table shows. It is the user's, and the same for all projects.
#pragma once

#include <string>

class TSplitter;
class TTable;

class Screen_memory {
public:
    virtual ~Screen_memory() = default;

    // What was remembered under the name of a control; empty for nothing.
    virtual std::string recall(const std::string& name) const = 0;
    // A text of one line, of at most 1,000 characters.
    virtual void remember(const std::string& name, const std::string& arrangement) = 0;
};

// The memory in use; null remembers nothing.
extern Screen_memory* current_screen_memory;

// Puts the splitter where the user left it, or at `first` (in thousandths) if he never moved it, and
// remembers where he moves it from now on.
void keep_position(TSplitter& splitter, int first);

// Arranges the columns of the table as the user left them, and remembers what he makes of them from now on.
// By what the table says it is sorted, its owner then has to sort.
void keep_columns(TTable& table);
