// The base of everything a screen is made of: a plain object with a name, a text, a state and children, which
// fires events and has no look. What draws it is a Control_view, which the control tells what changed.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

class TForm;

enum class Control_kind {
    form,
    panel,
    group_box,
    page_control,
    tab_sheet,
    label,
    edit,
    memo,
    check_box,
    radio_group,
    combo_box,
    list_box,
    shell_list,
    shell_tree,
    button,
    speed_button,
    spin_arrows,
    image,
    month_grid,
    progress_bar,
    ruler,
    web_view,
    map_view,
    table,
    splitter,
    main_menu,
    status_line,
};

// Blue, green, red: 0xbbggrr.
using Colour = std::int32_t;
constexpr Colour desktop_colour = -1; // whatever the desktop's theme gives

enum class Align { fill, start, middle, end };

// How a control sits in its container.
struct Place {
    int stretch = 0; // its share of the room to spare, 0 for none
    int span = 1;    // the columns it takes in a grid
    Align align = Align::fill;
    // How many characters it shows, 0 for what the desktop thinks fit. Buttons and texts of one line that
    // take no share of the room are just so wide, everything else at least.
    int width = 0;
    int height = 0; // how many lines it shows at least, 0 likewise
};

enum class Key_code {
    character = 0, // what Key::text holds
    backspace = 0x08,
    tab = 0x09,
    enter = 0x0D,
    escape = 0x1B,
    space = 0x20,
    page_up = 0x21,
    page_down = 0x22,
    end = 0x23,
    home = 0x24,
    left = 0x25,
    up = 0x26,
    right = 0x27,
    down = 0x28,
    insert = 0x2D,
    del = 0x2E,
    menu = 0x5D, // the key that opens the menu of what has the focus
    f1 = 0x70,   // the others follow, up to f12
    f2,
    f5 = 0x74,
    f10 = 0x79,
    f12 = 0x7B,
};

struct Key {
    Key_code code = Key_code::character;
    std::string text{}; // what the key writes, in UTF-8; with control or alt the letter on the key
    bool shift = false;
    bool control = false;
    bool alt = false;
};

// The key as a menu shows it: "Ctrl+Shift+S", "F5", "Alt+Left".
std::string key_name(const Key& key);

// What changed in a control. `first` and `count` say which lines, where the aspect is about lines.
enum class Aspect {
    text,
    hint,
    colour,
    visible,
    enabled,
    place,
    children,
    focus,
    caret,
    checked,
    lines_inserted,
    lines_removed,
    lines_changed,
    all_lines,
    cursor,
    line_on_view,
    editing, // of the cell in the line `first` and the column `count`
    page,
    value,
    state,
};

struct Change {
    Aspect aspect;
    int first = 0;
    int count = 0;
};

// A text that the program set, and the translation that may stand on the screen for it.
class Wording {
public:
    explicit Wording(std::string text) : shown_(std::move(text)) {}

    const std::string& shown() const { return shown_; }
    const std::string& native() const { return native_ ? *native_ : shown_; }
    // Sets the program's text, which ends its translation unless it is the text that was translated. Each
    // answers whether what is shown changed.
    bool set(const std::string& text);
    bool translate(const std::string& translation);

private:
    bool show(const std::string& text);

    std::string shown_;
    std::optional<std::string> native_; // while a translation is shown
};

class TControl;

// What draws one control, and observes it for that. It never owns the control and is never owned by it;
// whichever goes first, the other lives on without it.
class Control_view {
public:
    // Takes the place of any view that the control had.
    explicit Control_view(TControl& control);
    virtual ~Control_view();
    Control_view(const Control_view&) = delete;
    Control_view& operator=(const Control_view&) = delete;

    virtual void changed(const Change& change) = 0;

protected:
    // Null once the control is gone, or shown elsewhere.
    TControl* observed() const { return observed_; }
    // The control is gone: its parts must not be touched any more. `with_holder` tells that the view of what
    // holds it loses its control too.
    virtual void control_gone(bool with_holder) { static_cast<void>(with_holder); }

private:
    friend class TControl;
    TControl* observed_;
};

class TControl {
public:
    virtual ~TControl();
    TControl(const TControl&) = delete;
    TControl& operator=(const TControl&) = delete;

    Control_kind kind() const { return kind_; }
    const std::string& name() const { return name_; }

    // Makes a control that this one owns, and shows it behind its other children.
    template <class Control, class... Arguments>
    Control& add(Arguments&&... arguments) {
        auto made = std::make_unique<Control>(std::forward<Arguments>(arguments)...);
        Control& control = *made;
        owned_.push_back(std::move(made));
        host(control);
        return control;
    }
    // Shows a control, which stays with its owner, behind the other children; it leaves where it was shown.
    void host(TControl& control);
    // Destroys a control that `add` made here; any other is left alone.
    void remove(TControl& control);

    TControl* parent() const { return parent_; }
    const std::vector<TControl*>& children() const { return children_; }
    // The form that shows the control, itself for a form, or null.
    TForm* form();
    const TForm* form() const;
    // Calls `visit` for each control below this one, in the order of the screen, until it answers false.
    // Answers whether all were visited.
    bool walk(const std::function<bool(TControl&)>& visit);
    // The first control of that name at or below this one, or null.
    TControl* find(const std::string& wanted);

    // Setting fires no event: events tell what the user does.
    virtual const std::string& text() const { return text_.shown(); }
    virtual void set_text(const std::string& text);
    const std::string& hint() const { return hint_.shown(); }
    void set_hint(const std::string& hint);
    // What the program set, whether a translation of it is on view or not.
    const std::string& native_text() const {
        text(); // what is typed may still be in the view alone
        return text_.native();
    }
    const std::string& native_hint() const { return hint_.native(); }
    // Shows a translation in place of the text or the hint. It stays until the program sets another text:
    // setting the same one again, as an Update does, leaves the translation on view.
    void translate_text(const std::string& translation);
    void translate_hint(const std::string& translation);
    // Whether the text is a file's name, a date or the like, not the program's own words: such a text is
    // never translated.
    bool text_is_data() const { return text_is_data_; }
    void set_text_is_data(bool is_data) { text_is_data_ = is_data; }
    Colour colour() const { return colour_; }
    void set_colour(Colour colour);
    bool visible() const { return visible_; }
    virtual void set_visible(bool visible);
    bool enabled() const { return enabled_; }
    virtual void set_enabled(bool enabled);
    const Place& place() const { return place_; }
    void set_place(const Place& place);

    // Brings what the control shows in line with what it stands for. What has a value behind it overrides it.
    virtual void Update() {}

    // Whether a user could act on the control: it and all that holds it is visible, enabled and in front.
    bool usable() const;
    bool focused() const;
    // Moves the focus here, or to the first control below that takes it. Fires exit on all that the focus
    // leaves, innermost first, then enter on all that it comes into, outermost first. False when no control
    // here can have it.
    bool focus();
    // Brings the pages that hold the control to the front, as a user would to reach it.
    void bring_to_front();

    // What a user does. Each answers whether it could be done; when not, nothing happened.
    virtual bool click();
    // A key pressed with the focus here: the handler of the control sees it first, then the control itself,
    // then what holds it, outward, and last the form.
    bool key(const Key& key);
    // Files from a file manager let go over the control: they go to the innermost control, from this one
    // outward, that has a handler for them.
    bool drop_files(const std::vector<std::string>& names);
    bool accepts_files() const;

    // Offers a key to the control's own handler alone; a form also does what it does itself. True when the
    // key is used up.
    virtual bool offer_key(const Key& key);

    std::function<void()> on_click;
    std::function<void()> on_enter;
    std::function<void()> on_exit;
    std::function<bool(const Key&)> on_key; // answers whether the key is used up
    std::function<void(const std::vector<std::string>&)> on_drop_files;

    // What draws the control; null when nothing does.
    Control_view* view() const { return view_; }

protected:
    TControl(Control_kind kind, std::string name, std::string text = {});

    // Whether the user can act on the control at this moment.
    bool in_reach() const;
    // The user is about to act on the control: gives it the focus if it takes it. False when it may not be.
    bool begin_action();
    void set_takes_focus(bool takes) { takes_focus_ = takes; }
    void notify(const Change& change);
    void notify(Aspect aspect) { notify(Change{aspect}); }
    // Sets a field and tells the view, when the value differs.
    template <class Value>
    bool assign(Value& field, const Value& value, Aspect aspect) {
        if (field == value)
            return false;
        field = value;
        notify(aspect);
        return true;
    }

    // Takes over a text that is on view already.
    void adopt_text(const std::string& text) { text_.set(text); }
    // What only the view knows is asked for now: it goes.
    virtual void view_goes() {}
    // What the control itself does with a key that its handler left. True when the key is used up.
    virtual bool press(const Key& key);
    // Whether a child is among those on view, as far as this control decides it.
    virtual bool has_in_front(const TControl& child) const;
    virtual void bring_child_to_front(TControl& child);
    virtual void child_visibility_changed(TControl& child);
    virtual void child_leaves(TControl& child);
    // Takes the focus from where a user can no longer reach it.
    void give_up_lost_focus();
    virtual void do_click();
    virtual void do_enter();
    virtual void do_exit();

private:
    friend class TForm;
    friend class Control_view;

    void leave_parent();
    void release_views(bool with_holder = false);
    void release_view(bool with_holder = false);
    bool usable_within_form() const;
    TControl* first_to_focus();

    Control_kind kind_;
    std::string name_;
    Wording text_;
    Wording hint_{std::string()};
    bool text_is_data_ = false;
    Colour colour_ = desktop_colour;
    bool visible_ = true;
    bool enabled_ = true;
    bool takes_focus_ = false;
    Place place_;
    TControl* parent_ = nullptr;
    std::vector<TControl*> children_;
    std::vector<std::unique_ptr<TControl>> owned_;
    Control_view* view_ = nullptr;
};
