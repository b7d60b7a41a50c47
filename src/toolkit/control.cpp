#include "toolkit/control.h"

#include "toolkit/desktop.h"
#include "toolkit/timer.h"

#include <algorithm>

Control_view::Control_view(TControl& control) : observed_(&control) {
    control.release_view();
    control.view_ = this;
}

Control_view::~Control_view() {
    if (observed_)
        observed_->view_ = nullptr;
}

std::string key_name(const Key& key) {
    struct Named {
        Key_code code;
        const char* name;
    };
    constexpr Named names[] = {
        {Key_code::backspace, "Backspace"}, {Key_code::tab, "Tab"},     {Key_code::enter, "Enter"},
        {Key_code::escape, "Esc"},          {Key_code::space, "Space"}, {Key_code::page_up, "PgUp"},
        {Key_code::page_down, "PgDown"},    {Key_code::end, "End"},     {Key_code::home, "Home"},
        {Key_code::left, "Left"},           {Key_code::up, "Up"},       {Key_code::right, "Right"},
        {Key_code::down, "Down"},           {Key_code::insert, "Ins"},  {Key_code::del, "Del"},
        {Key_code::menu, "Menu"},
    };
    std::string name = key.control ? "Ctrl+" : "";
    name += key.alt ? "Alt+" : "";
    name += key.shift ? "Shift+" : "";
    if (key.code == Key_code::character) {
        for (const char letter : key.text)
            name += letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
        return name;
    }
    if (key.code >= Key_code::f1 && key.code <= Key_code::f12)
        return name + "F" + std::to_string(static_cast<int>(key.code) - static_cast<int>(Key_code::f1) + 1);
    const auto found = std::find_if(std::begin(names), std::end(names),
                                    [&](const Named& named) { return named.code == key.code; });
    return found == std::end(names) ? std::string() : name + found->name;
}

bool Wording::show(const std::string& text) {
    if (text == shown_)
        return false;
    shown_ = text;
    return true;
}

bool Wording::set(const std::string& text) {
    if (native_ && *native_ == text)
        return false;
    native_.reset();
    return show(text);
}

bool Wording::translate(const std::string& translation) {
    if (!native_)
        native_ = shown_;
    return show(translation);
}

TControl::TControl(Control_kind kind, std::string name, std::string text)
    : kind_(kind), name_(std::move(name)), text_(std::move(text)) {}

TControl::~TControl() {
    release_views();
    leave_parent();
    // Children that live on, and those that die now, must not look for a parent that is half gone.
    for (TControl* child : children_)
        child->parent_ = nullptr;
    children_.clear();
    while (!owned_.empty())
        owned_.pop_back();
}

void TControl::host(TControl& control) {
    if (control.parent_ == this)
        return;
    for (const TControl* above = this; above; above = above->parent_)
        if (above == &control)
            return;
    control.release_views();
    control.leave_parent();
    control.parent_ = this;
    children_.push_back(&control);
    child_visibility_changed(control);
    notify(Aspect::children);
}

void TControl::remove(TControl& control) {
    const auto found = std::find_if(owned_.begin(), owned_.end(),
                                    [&](const auto& owned) { return owned.get() == &control; });
    if (found != owned_.end()) {
        const std::unique_ptr<TControl> dying = std::move(*found);
        owned_.erase(found);
    }
}

void TControl::leave_parent() {
    if (!parent_)
        return;
    if (TForm* holder = parent_->form())
        holder->forget_focus_in(*this);
    TControl* const left = parent_;
    left->children_.erase(std::find(left->children_.begin(), left->children_.end(), this));
    parent_ = nullptr;
    left->child_leaves(*this);
    left->notify(Aspect::children);
}

void TControl::release_views(bool with_holder) {
    for (TControl* child : children_)
        child->release_views(with_holder || view_);
    release_view(with_holder);
}

void TControl::release_view(bool with_holder) {
    if (view_)
        view_goes();
    if (Control_view* const view = std::exchange(view_, nullptr)) {
        view->observed_ = nullptr;
        view->control_gone(with_holder);
    }
}

const TForm* TControl::form() const {
    const TControl* control = this;
    while (control && control->kind_ != Control_kind::form)
        control = control->parent_;
    return static_cast<const TForm*>(control);
}

TForm* TControl::form() {
    return const_cast<TForm*>(std::as_const(*this).form());
}

bool TControl::walk(const std::function<bool(TControl&)>& visit) {
    return std::all_of(children_.begin(), children_.end(),
                       [&](TControl* child) { return visit(*child) && child->walk(visit); });
}

TControl* TControl::find(const std::string& wanted) {
    if (name_ == wanted)
        return this;
    TControl* found = nullptr;
    walk([&](TControl& control) {
        found = control.name_ == wanted ? &control : nullptr;
        return !found;
    });
    return found;
}

void TControl::set_text(const std::string& text) {
    if (text_.set(text))
        notify(Aspect::text);
}

void TControl::set_hint(const std::string& hint) {
    if (hint_.set(hint))
        notify(Aspect::hint);
}

void TControl::translate_text(const std::string& translation) {
    if (text_.translate(translation))
        notify(Aspect::text);
}

void TControl::translate_hint(const std::string& translation) {
    if (hint_.translate(translation))
        notify(Aspect::hint);
}

void TControl::set_colour(Colour colour) {
    assign(colour_, colour, Aspect::colour);
}

void TControl::set_visible(bool visible) {
    if (assign(visible_, visible, Aspect::visible)) {
        if (parent_)
            parent_->child_visibility_changed(*this);
        give_up_lost_focus();
    }
}

void TControl::set_enabled(bool enabled) {
    if (assign(enabled_, enabled, Aspect::enabled))
        give_up_lost_focus();
}

void TControl::set_place(const Place& place) {
    place_ = place;
    notify(Aspect::place);
}

bool TControl::usable() const {
    const TForm* const holder = form();
    return usable_within_form() && (!holder || holder->visible_);
}

// Leaves out whether the form is shown: a form not yet shown can be told where the focus will be.
bool TControl::usable_within_form() const {
    for (const TControl* control = this; control; control = control->parent_) {
        const bool seen = control->kind_ == Control_kind::form || control->visible_;
        if (!seen || !control->enabled_ || (control->parent_ && !control->parent_->has_in_front(*control)))
            return false;
    }
    return true;
}

bool TControl::focused() const {
    const TForm* const holder = form();
    return holder && holder->focused_control() == this;
}

TControl* TControl::first_to_focus() {
    if (takes_focus_ && usable_within_form())
        return this;
    for (TControl* child : children_)
        if (TControl* const found = child->first_to_focus())
            return found;
    return nullptr;
}

bool TControl::focus() {
    TForm* const holder = form();
    TControl* const target = first_to_focus();
    return holder && target && holder->move_focus(target);
}

void TControl::give_up_lost_focus() {
    TForm* const holder = form();
    if (holder && holder->focused_control() && !holder->focused_control()->usable_within_form())
        holder->move_focus(nullptr);
}

void TControl::bring_to_front() {
    if (parent_) {
        parent_->bring_to_front();
        parent_->bring_child_to_front(*this);
    }
}

bool TControl::in_reach() const {
    return usable() && !(current_desktop && current_desktop->holds_input());
}

bool TControl::begin_action() {
    if (!in_reach())
        return false;
    TTimer::user_acted();
    if (takes_focus_)
        focus();
    // What the focus left may have hidden or disabled this control.
    return usable();
}

bool TControl::click() {
    if (!begin_action())
        return false;
    do_click();
    return true;
}

bool TControl::offer_key(const Key& key) {
    return in_reach() && on_key && on_key(key);
}

bool TControl::key(const Key& key) {
    if (!begin_action())
        return false;
    if (offer_key(key) || press(key))
        return true;
    for (TControl* above = parent_; above; above = above->parent_)
        if (above->offer_key(key))
            return true;
    return false;
}

bool TControl::accepts_files() const {
    return on_drop_files || (parent_ && parent_->accepts_files());
}

bool TControl::drop_files(const std::vector<std::string>& names) {
    if (!in_reach() || names.empty())
        return false;
    TTimer::user_acted();
    if (on_drop_files) {
        on_drop_files(names);
        return true;
    }
    return parent_ && parent_->drop_files(names);
}

void TControl::notify(const Change& change) {
    if (view_)
        view_->changed(change);
}

bool TControl::press(const Key&) {
    return false;
}

bool TControl::has_in_front(const TControl&) const {
    return true;
}

void TControl::bring_child_to_front(TControl&) {}

void TControl::child_visibility_changed(TControl&) {}

void TControl::child_leaves(TControl&) {}

void TControl::do_click() {
    if (on_click)
        on_click();
}

void TControl::do_enter() {
    if (on_enter)
        on_enter();
}

void TControl::do_exit() {
    if (on_exit)
        on_exit();
}
