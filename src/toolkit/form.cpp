#include "toolkit/form.h"

#include "toolkit/button.h"
#include "toolkit/desktop.h"
#include "toolkit/label.h"
#include "toolkit/menu.h"
#include "toolkit/open_dialog.h"
#include "toolkit/screen_language.h"
#include "toolkit/timer.h"

#include <algorithm>

namespace {

bool is_within(const TControl* control, const TControl* ancestor) {
    while (control && control != ancestor)
        control = control->parent();
    return control != nullptr;
}

} // namespace

TForm::TForm(std::string name, std::string text, Layout layout, int columns)
    : TContainer(Control_kind::form, std::move(name), std::move(text), layout, columns) {
    TControl::set_visible(false);
}

// Children that die with the form must not move its focus.
TForm::~TForm() {
    focused_ = nullptr;
}

void TForm::show() {
    appear();
    if (current_desktop)
        current_desktop->show(*this);
}

Modal_result TForm::show_modal() {
    const Open_dialog open;
    modal_ = true;
    modal_result_ = Modal_result::none;
    const std::unique_ptr<TForm, void (*)(TForm*)> at_the_end(this, [](TForm* form) {
        form->TControl::set_visible(false);
        form->modal_ = false;
    });
    appear();
    if (current_desktop)
        current_desktop->run_modal(*this);
    return modal_result_ == Modal_result::none ? Modal_result::cancel : modal_result_;
}

void TForm::appear() {
    if (visible())
        return;
    TControl::set_visible(true);
    if (on_show)
        on_show();
    if (current_screen_language)
        current_screen_language->prepare(*this);
    if (!focused_)
        focus_next();
}

void TForm::set_visible(bool visible) {
    if (visible)
        show();
    else
        TControl::set_visible(false);
}

void TForm::set_modal_result(Modal_result result) {
    modal_result_ = result;
    end_if_asked();
}

void TForm::end_if_asked() {
    if (modal_ && modal_result_ != Modal_result::none && !close())
        modal_result_ = Modal_result::none;
}

void TForm::set_bounds(const Bounds& bounds) {
    assign(bounds_, bounds, Aspect::place);
}

bool TForm::close() {
    if (!visible())
        return true;
    TControl* const had_focus = focused_;
    move_focus(nullptr);
    if (on_close_query && !on_close_query()) {
        if (had_focus && !focused_)
            had_focus->focus();
        return false;
    }
    TControl::set_visible(false);
    if (on_close)
        on_close();
    return true;
}

bool TForm::move_focus(TControl* target) {
    TControl* const source = focused_;
    if (source == target)
        return true;
    TTimer::user_acted();
    focused_ = target;
    for (TControl* left = source; left && left != this && !is_within(target, left); left = left->parent())
        left->do_exit();
    std::vector<TControl*> entered;
    for (TControl* come = target; come && come != this && !is_within(source, come); come = come->parent())
        entered.push_back(come);
    for (auto come = entered.rbegin(); come != entered.rend() && focused_ == target; ++come)
        (*come)->do_enter();
    // A handler on the way may have sent the focus elsewhere, or taken the ground from under it.
    if (focused_ && !focused_->usable_within_form())
        focused_ = nullptr;
    if (focused_)
        focused_->notify(Aspect::focus);
    return focused_ == target;
}

void TForm::leave_focus_in(const TControl& control) {
    if (is_within(focused_, &control))
        move_focus(nullptr);
}

void TForm::forget_focus_in(const TControl& control) {
    if (is_within(focused_, &control))
        focused_ = nullptr;
}

bool TForm::focus_next(bool backward) {
    std::vector<TControl*> stops;
    walk([&](TControl& control) {
        if (control.takes_focus_ && control.usable_within_form())
            stops.push_back(&control);
        return true;
    });
    if (stops.empty())
        return false;
    if (backward)
        std::reverse(stops.begin(), stops.end());
    auto next = std::find(stops.begin(), stops.end(), focused_);
    next = next == stops.end() || next + 1 == stops.end() ? stops.begin() : next + 1;
    return move_focus(*next);
}

void TForm::notice(const std::string& text, Mark mark) {
    if (on_notice) {
        on_notice(text, mark);
        return;
    }
    walk([&](TControl& control) {
        if (control.kind() != Control_kind::status_line)
            return true;
        static_cast<TStatusLine&>(control).show(text, mark);
        return false;
    });
}

bool TForm::activate() {
    if (!in_reach())
        return false;
    if (on_activate)
        on_activate();
    return true;
}

bool TForm::press_shortcut(const Key& key) {
    bool used = false;
    for (TControl* child : children())
        if (!used && child->kind() == Control_kind::main_menu)
            used = static_cast<TMainMenu*>(child)->press_shortcut(key);
    return used;
}

bool TForm::press_button(bool (*wanted)(const TButton&)) {
    TButton* found = nullptr;
    walk([&](TControl& control) {
        if (control.kind() == Control_kind::button && control.usable()) {
            auto& button = static_cast<TButton&>(control);
            found = wanted(button) ? &button : nullptr;
        }
        return !found;
    });
    return found && found->click();
}

bool TForm::offer_key(const Key& key) {
    if (TControl::offer_key(key))
        return true;
    if (!in_reach())
        return false;
    if (press_shortcut(key))
        return true;
    switch (key.code) {
    case Key_code::tab: return focus_next(key.shift);
    case Key_code::enter: return press_button([](const TButton& button) { return button.is_default(); });
    case Key_code::escape:
        return press_button([](const TButton& button) { return button.is_cancel(); }) || (modal_ && close());
    default: return false;
    }
}
