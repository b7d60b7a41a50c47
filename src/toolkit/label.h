// Text on a form, the line of notices at its bottom, and a bar that shows how far something has come.
#pragma once

#include "toolkit/picture.h"

// What of a text that is wider than its room is left out: nothing, so that the room grows, its middle (for
// paths), or its end. The whole text is shown as a hint then.
enum class Cut { none, middle, end };

class TLabel : public TControl {
public:
    explicit TLabel(std::string name, std::string text = {}, bool wraps = false)
        : TLabel(Control_kind::label, std::move(name), std::move(text), wraps) {}

    // Whether the text breaks into lines where it is wider than its room.
    bool wraps() const { return wraps_; }
    // Whether the label names the control behind it in its container: "&" then marks the key that leads
    // there.
    bool names_next() const { return names_next_; }
    void set_names_next(bool names) { assign(names_next_, names, Aspect::state); }
    // A sign before the text, for what its colour tells.
    Mark mark() const { return mark_; }
    void set_mark(Mark mark) { assign(mark_, mark, Aspect::state); }
    Cut cut() const { return cut_; }
    void set_cut(Cut cut) { assign(cut_, cut, Aspect::state); }

protected:
    TLabel(Control_kind kind, std::string name, std::string text, bool wraps)
        : TControl(kind, std::move(name), std::move(text)), wraps_(wraps) {}

private:
    bool wraps_;
    Cut cut_ = Cut::none;
    bool names_next_ = false;
    Mark mark_ = Mark::none;
};

// One line at the bottom of a form, which tells what was just done or could not be.
class TStatusLine : public TLabel {
public:
    explicit TStatusLine(std::string name) : TLabel(Control_kind::status_line, std::move(name), {}, false) {
        set_text_is_data(true);
        set_cut(Cut::end);
    }

    void show(const std::string& text, Mark mark = Mark::none) {
        set_mark(mark);
        set_text(text);
    }
};

class TProgressBar : public TControl {
public:
    explicit TProgressBar(std::string name) : TControl(Control_kind::progress_bar, std::move(name)) {}

    int position() const { return position_; }
    int maximum() const { return maximum_; }
    // A position outside 0 to the maximum is moved to its ends; a maximum below 0 is 0.
    void set_position(int position);
    void set_maximum(int maximum);
    void step() { set_position(position_ + 1); }

private:
    int position_ = 0;
    int maximum_ = 100;
};
