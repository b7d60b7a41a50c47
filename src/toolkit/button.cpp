#include "toolkit/button.h"

TButton::TButton(std::string name, std::string text)
    : TControl(Control_kind::button, std::move(name), std::move(text)) {
    set_takes_focus(true);
}

bool TButton::click() {
    if (!begin_action())
        return false;
    TForm* const holder = form();
    if (holder && modal_result_ != Modal_result::none)
        holder->begin_modal_result(modal_result_);
    do_click();
    if (holder)
        holder->end_if_asked();
    return true;
}

bool TButton::press(const Key& key) {
    return (key.code == Key_code::enter || key.code == Key_code::space) && click();
}

bool TSpeedButton::press(const Key& key) {
    return (key.code == Key_code::enter || key.code == Key_code::space) && click();
}

bool TSpinArrows::spin(bool upward) {
    if (!begin_action())
        return false;
    if (on_spin)
        on_spin(upward);
    return true;
}
