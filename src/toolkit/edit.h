// Controls that text is typed into. The text, the caret and the selection are state of the control; positions
// count characters, not bytes.
#pragma once

#include "toolkit/control.h"

// Where a text is that the user edits while its control is not told each time what it has become.
class Text_holder {
public:
    virtual ~Text_holder() = default;
    virtual std::string held_text() const = 0;
    // The ends of the selection, the caret second.
    virtual std::pair<int, int> held_selection() const = 0;
};

// What an edit comes to: what may not come in is refused.
struct Edit_outcome {
    std::string text;
    int caret = 0;
    std::string refused{};
    bool differs = false; // whether anything came in or went, if only to be cleaned away again
};

class TCustomEdit : public TControl {
public:
    const std::string& text() const override {
        catch_up();
        return TControl::text();
    }
    // The caret goes to the start of a text that differs. In a control of one line a line break becomes a
    // blank, and the modified mark is taken away.
    void set_text(const std::string& text) override;

    int caret() const {
        catch_up();
        return caret_;
    }
    // Where the selection begins and how many characters it has, 0 for none; the caret is at one of its ends.
    int selection_start() const;
    int selection_length() const;
    std::string selected_text() const;
    // Positions outside the text are moved to its ends: a caret is never below 0.
    void set_caret(int position) { set_selection(position, position); }
    // Selects from `anchor` to `caret`, in either direction.
    void set_selection(int anchor, int caret);
    void select_all();

    bool read_only() const { return read_only_; }
    void set_read_only(bool read_only) { assign(read_only_, read_only, Aspect::state); }
    // Whether the user changed the text since it was set, or the mark was taken away.
    bool modified() const { return modified_; }
    void set_modified(bool modified) { modified_ = modified; }
    bool multi_line() const { return multi_line_; }
    bool right_aligned() const { return right_aligned_; }
    void set_right_aligned(bool right) { assign(right_aligned_, right, Aspect::state); }
    // Characters of one width, as for source text and commands.
    bool fixed_pitch() const { return fixed_pitch_; }
    void set_fixed_pitch(bool fixed) { assign(fixed_pitch_, fixed, Aspect::state); }
    // Whether a text that is wider than its room is shown without its middle while the focus is elsewhere, as
    // for paths.
    bool cuts_middle() const { return cuts_middle_; }
    void set_cuts_middle(bool cuts) { assign(cuts_middle_, cuts, Aspect::state); }

    // What a user does. Text typed or pasted at the caret takes the place of the selection.
    bool type_text(const std::string& text);
    // The whole text and the caret as an edit of any kind left them (undo, cut, an input method). What it put
    // in goes through the same filter as what is typed.
    bool edit_text(const std::string& text, int caret);
    bool select_text(int anchor, int caret);
    // The user edited the text, or moved the caret, in its widget. The control asks what it has become when
    // somebody wants to know: a key in a long text costs no more than in a short one. What comes in has
    // passed `admit`.
    bool edit_in_place(const Text_holder& holder);
    bool select_in_place(const Text_holder& holder);
    // What remains of a text that is about to be typed or pasted; of what is refused the user is told.
    std::string admit(const std::string& text);
    // What edit_text would come to; nothing happens.
    Edit_outcome outcome_of(const std::string& text, int caret) const;
    // Asks what is still in the widget alone.
    void catch_up() const;

    std::function<void()> on_change; // the user changed the text
    // What remains of a text that is about to come in, typed or pasted; none lets everything in.
    std::function<std::string(const std::string&)> input_filter;

protected:
    TCustomEdit(Control_kind kind, std::string name, bool multi_line);

    bool press(const Key& key) override;
    virtual void do_change();
    // What of the whole text that an edit left may stay; the control still has the text before it.
    virtual void clean(Edit_outcome&) const {}
    // The user's edit is done; `refused` is what was not taken, empty when all was.
    virtual void do_edited(const std::string& refused) { static_cast<void>(refused); }
    void view_goes() override { catch_up(); }

    std::string without_line_breaks(const std::string& text) const;

private:
    std::string admitted(const std::string& text) const;
    std::string refused_of(const std::string& came, const std::string& stays) const;
    bool begin_edit();
    void replace(int start, int removed, const std::string& inserted);
    bool erase(int step);
    Edit_outcome cleaned(Edit_outcome outcome) const;
    void finish_edit(const Edit_outcome& outcome);

    mutable const Text_holder* text_ahead_ = nullptr;
    mutable const Text_holder* caret_ahead_ = nullptr;
    mutable int anchor_ = 0;
    mutable int caret_ = 0;
    bool multi_line_;
    bool read_only_ = false;
    bool modified_ = false;
    bool right_aligned_ = false;
    bool fixed_pitch_ = false;
    bool cuts_middle_ = false;
};

class TEdit : public TCustomEdit {
public:
    explicit TEdit(std::string name) : TCustomEdit(Control_kind::edit, std::move(name), false) {}

    // What an empty edit says of what belongs there. It is the program's own, and translated like a hint.
    const std::string& prompt() const { return prompt_.shown(); }
    const std::string& native_prompt() const { return prompt_.native(); }
    void set_prompt(const std::string& prompt);
    void translate_prompt(const std::string& translation);

private:
    Wording prompt_{std::string()};
};

class TMemo : public TCustomEdit {
public:
    explicit TMemo(std::string name) : TCustomEdit(Control_kind::memo, std::move(name), true) {}

    // 0 for an empty text; a line break at the end begins no further line.
    int line_count() const;
    // Puts a line behind the others, and the caret behind it, so that it is seen.
    void append_line(const std::string& line);
};
