// What every control that the user types a value into does with its colours, and when the focus leaves.
#pragma once

#include "editing/bound_control.h"
#include "toolkit/form.h"

#include <utility>

template <class Edit>
class TAutoEntry : public Edit, public Help_link {
public:
    void set_enabled(bool enabled) override {
        if (enabled == this->enabled())
            return;
        Edit::set_enabled(enabled);
        this->set_colour(enabled ? normal_color : disabled_colour);
    }

protected:
    template <class... Arguments>
    explicit TAutoEntry(std::string name, Arguments&&... arguments)
        : Edit(std::move(name), std::forward<Arguments>(arguments)...), normal_color(this->colour()) {}

    void do_enter() override {
        if (this->enabled()) {
            this->set_colour(focus_colour);
            this->select_all();
        }
        Edit::do_enter();
    }
    void do_exit() override {
        leave();
        Edit::do_exit();
    }
    // What the control itself does when the focus leaves.
    virtual void leave() = 0;

    // What is refused is told at the bottom of the window, until an edit is taken.
    void do_edited(const std::string& refused) override {
        TForm* const holder = this->form();
        if (holder && (told_ || !refused.empty()))
            holder->notice(refused.empty() ? std::string() : refusal(refused),
                           refused.empty() ? Mark::none : Mark::exclamation);
        told_ = !refused.empty();
    }
    // Why the characters were not taken, in the user's language.
    virtual std::string refusal(const std::string& refused) const = 0;

    // Does nothing while the control is disabled, which has a colour of its own.
    void restore_colour() {
        if (this->enabled())
            this->set_colour(normal_color);
    }
    void update_parent() { update_parent_of(*this); }

private:
    Colour normal_color;
    bool told_ = false;
};
