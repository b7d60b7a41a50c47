// A window: what holds the focus among its controls, sees the keys that they leave, and can run as a dialog
// that ends with a result.
#pragma once

#include "toolkit/panel.h"
#include "toolkit/picture.h"

// What a dialog ends with, and what a message box answers.
enum class Modal_result { none = 0, ok = 1, cancel = 2, abort = 3, retry = 4, ignore = 5, yes = 6, no = 7 };

// Where a window stands, in the desktop's own units; all 0 lets the desktop choose.
struct Bounds {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
    bool operator==(const Bounds&) const = default;
};

class TButton;

class TForm : public TContainer {
public:
    explicit TForm(std::string name, std::string text = {}, Layout layout = Layout::column, int columns = 1);
    ~TForm() override;

    // Shows the window beside the others; a form is hidden until then.
    void show();
    // Runs the form as a dialog and answers its result: cancel when it was closed without one.
    Modal_result show_modal();
    void set_visible(bool visible) override;

    bool modal() const { return modal_; }
    Modal_result modal_result() const { return modal_result_; }
    // Ends the dialog when the result is not none. A form that is no dialog only keeps the result.
    void set_modal_result(Modal_result result);

    const Bounds& bounds() const { return bounds_; }
    // Where the window is to stand, and, from the view, where the user put it.
    void set_bounds(const Bounds& bounds);

    // Closes the window as its frame's button does. What has the focus is left first, so that nothing typed
    // is lost. False when on_close_query refused.
    bool close();

    TControl* focused_control() const { return focused_; }
    // Takes the focus from whatever has it, so that what is typed there is complete.
    void leave_focus() { move_focus(nullptr); }
    // The same where the control, or one in it, has it.
    void leave_focus_in(const TControl& control);
    // Moves the focus to the next control that takes it, in the order of the screen, and round at the end.
    // False when there is none.
    bool focus_next(bool backward = false);

    // Tells the user something that needs no answer, in the form's status line. A form without one, or
    // without on_notice, tells nothing.
    void notice(const std::string& text, Mark mark = Mark::none);
    // What a user does: turns to this window from another. The desktop also calls it when the form is shown.
    bool activate();

    // The keys that the controls leave: the form's handler, then its menu, the tabulator, the default button
    // for enter, and for escape the cancel button, or the end of a dialog.
    bool offer_key(const Key& key) override;

    std::function<void()> on_show;
    std::function<void()> on_activate; // the window has become the one that the user works in
    // Where notices go in place of the form's own status line.
    std::function<void(const std::string& text, Mark mark)> on_notice;
    std::function<bool()> on_close_query; // answers whether the form may close
    std::function<void()> on_close;

private:
    friend class TControl;
    friend class TButton;

    void appear();
    bool move_focus(TControl* target);
    void forget_focus_in(const TControl& control);
    bool press_shortcut(const Key& key);
    bool press_button(bool (*wanted)(const TButton&));
    void begin_modal_result(Modal_result result) { modal_result_ = result; }
    void end_if_asked();

    TControl* focused_ = nullptr;
    Modal_result modal_result_ = Modal_result::none;
    bool modal_ = false;
    Bounds bounds_;
};
