// Lists of lines, with or without a check mark before each. A list tells its view which lines changed, never
// more.
#pragma once

#include "toolkit/control.h"

// One line of a list.
struct Line {
    std::string text;
    bool checked = false;
    bool enabled = true;
    bool selected = false;
    bool faint = false; // drawn as one that is of little use; it can be chosen all the same
};

class TListBox : public TControl {
public:
    explicit TListBox(std::string name, bool multi_select = false)
        : TListBox(Control_kind::list_box, std::move(name), false, multi_select) {}

    bool has_check_marks() const { return has_check_marks_; }
    bool multi_select() const { return multi_select_; }

    int count() const { return static_cast<int>(lines_.size()); }
    // An index outside the list has an empty, enabled line; setting such a line does nothing.
    const Line& line(int index) const;
    // The index of the first line of exactly this text, or -1.
    int index_of(const std::string& text) const;

    void clear() { set_lines({}); }
    // Replaces all lines; none is checked or selected, and there is no cursor.
    void set_lines(const std::vector<std::string>& texts);
    void add_line(const std::string& text) { insert_line(count(), text); }
    // The cursor stays on its line.
    void insert_line(int index, const std::string& text);
    void remove_line(int index);

    void set_line_text(int index, const std::string& text);
    void set_line_enabled(int index, bool enabled);
    void set_line_faint(int index, bool faint);
    void set_checked(int index, bool checked);
    void set_all_checked(bool checked);
    bool checked(int index) const { return line(index).checked; }
    int checked_count() const;
    bool selected(int index) const { return line(index).selected; }
    void set_selected(int index, bool selected);

    // The line under the cursor, or -1. Without multiple selection it is the selected one.
    int item_index() const { return item_index_; }
    void set_item_index(int index);
    // The text under the cursor; empty without one.
    const std::string& item_text() const { return line(item_index_).text; }
    // Scrolls so that the line is on view.
    void show_line(int index);

    // What a user does. Clicking a line moves the cursor there and selects it alone.
    bool select(int index);
    // Selects these lines and no other, the cursor on the last; only with multiple selection.
    bool select_lines(const std::vector<int>& indexes);
    // Sets the check mark by its box: the cursor stays where it is.
    bool check(int index, bool checked = true);
    bool double_click(int index);
    bool click() override { return select(item_index_); }

    std::function<void()> on_change; // the user moved the cursor to another line
    std::function<void(int index)> on_check;
    std::function<void()> on_double_click;
    // Hears all that a view hears: for what shows the lines in a way of its own, whatever draws the list.
    std::function<void(const Change&)> on_told;

protected:
    TListBox(Control_kind kind, std::string name, bool has_check_marks, bool multi_select);

    // The same as set_lines, with marks.
    void replace_lines(std::vector<Line> lines, int item_index);
    bool has_line(int index) const { return index >= 0 && index < count(); }
    bool press(const Key& key) override;
    virtual void do_change();
    virtual void do_check(int index);

private:
    void tell(const Change& change);
    template <class Value>
    void set_in_line(int index, Value Line::*field, const Value& value);
    void select_only(const std::vector<int>& indexes);

    std::vector<Line> lines_;
    int item_index_ = -1;
    bool has_check_marks_;
    bool multi_select_;
};

class TCheckListBox : public TListBox {
public:
    explicit TCheckListBox(std::string name, bool multi_select = false)
        : TListBox(Control_kind::list_box, std::move(name), true, multi_select) {}
};
