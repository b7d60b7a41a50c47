// Buttons: one that acts, one that stays down, and a pair of arrows.
#pragma once

#include "toolkit/form.h"

class TButton : public TControl {
public:
    explicit TButton(std::string name, std::string text = {});

    // The result with which a click ends the dialog, unless the click's handler takes it back.
    Modal_result modal_result() const { return modal_result_; }
    void set_modal_result(Modal_result result) { modal_result_ = result; }
    // Enter clicks the default button of a form, escape its cancel button.
    bool is_default() const { return is_default_; }
    void set_default(bool value) { assign(is_default_, value, Aspect::state); }
    bool is_cancel() const { return is_cancel_; }
    void set_cancel(bool value) { is_cancel_ = value; }

    bool click() override;

protected:
    bool press(const Key& key) override;

private:
    Modal_result modal_result_ = Modal_result::none;
    bool is_default_ = false;
    bool is_cancel_ = false;
};

// A button that shows whether it is down. Clicking does not change that: the handler says what is down.
class TSpeedButton : public TControl {
public:
    explicit TSpeedButton(std::string name, std::string text = {})
        : TControl(Control_kind::speed_button, std::move(name), std::move(text)) {
        set_takes_focus(true);
    }

    bool down() const { return down_; }
    void set_down(bool down) { assign(down_, down, Aspect::checked); }

protected:
    bool press(const Key& key) override;

private:
    bool down_ = false;
};

// Two arrows beside a number. They hold no number themselves. The text before them tells what they step.
class TSpinArrows : public TControl {
public:
    explicit TSpinArrows(std::string name, std::string text = {})
        : TControl(Control_kind::spin_arrows, std::move(name), std::move(text)) {}

    // What a user does; `upward` for the upper arrow.
    bool spin(bool upward);

    std::function<void(bool upward)> on_spin;
};
