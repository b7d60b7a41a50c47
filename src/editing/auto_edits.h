// Edits that are bound to a number or a text of a record.
#pragma once

#include "editing/bound_control.h"
#include "foundation/ustring.h"
#include "toolkit/edit.h"

#include <cstdint>
#include <functional>

// What the number edits share: the colours, and the filter that runs at every keystroke, on what is pasted as
// on what is typed.
class TAutoNumberEdit : public TEdit, public Help_link {
public:
    // The control to the value. Does nothing while nothing is bound.
    virtual void update_value() = 0;

    void set_enabled(bool enabled) override;

    // What happens when the focus leaves, in place of what the control does itself.
    std::function<void()> leave_handler;

protected:
    explicit TAutoNumberEdit(std::string name);

    void do_change() override;
    void do_enter() override;
    void do_exit() override;
    virtual void leave() = 0;

    // Drops what is no digit, no minus at the front and, where one is allowed, no first point.
    void clean_up(bool allow_point);
    virtual bool allows_point() const = 0;
    void restore_colour() { set_colour(normal_color_); }
    void update_parent();

private:
    Colour normal_color_;
};

// A number of 32 bits. The value follows every keystroke.
class TAutoFloat32Edit : public TAutoNumberEdit {
public:
    explicit TAutoFloat32Edit(std::string name) : TAutoNumberEdit(std::move(name)) {}

    // Null shows 0.
    void bind_to(float* value, std::uint8_t precision, const char* help_URL);
    void Update() override;
    void update_value() override;

protected:
    void leave() override;
    bool allows_point() const override { return true; }

private:
    float* value_ = nullptr;
    std::uint8_t precision_ = 2;
};

// A whole number of 16 bits, likewise.
class TAutoInt16Edit : public TAutoNumberEdit {
public:
    explicit TAutoInt16Edit(std::string name) : TAutoNumberEdit(std::move(name)) {}

    void bind_to(std::int16_t* value, const char* help_URL);
    void Update() override;
    void update_value() override;

protected:
    void leave() override;
    bool allows_point() const override { return false; }

private:
    std::int16_t* value_ = nullptr;
};

// A text of one line, and one of many. The value follows when the focus leaves.
template <class Edit>
class TAutoTextEdit : public Edit, public Help_link {
public:
    explicit TAutoTextEdit(std::string name) : Edit(std::move(name)) { this->input_filter = typable_text; }

    // Null shows nothing.
    void bind_to(TESK::Ustring* value, const char* help_URL) {
        value_ = value;
        Help_link::set(help_URL);
        Update();
    }
    void Update() override { this->set_text(value_ == nullptr ? "" : screen_text(*value_)); }
    void update_value() {
        if (value_ != nullptr)
            value_->assign(record_text(this->text()));
    }
    void set_enabled(bool enabled) override {
        Edit::set_enabled(enabled);
        this->set_colour(enabled ? normal_color_ : disabled_colour);
    }

protected:
    void do_enter() override {
        if (this->enabled()) {
            this->set_colour(focus_colour);
            this->select_all();
        }
        Edit::do_enter();
    }
    void do_exit() override {
        if (this->enabled())
            this->set_colour(normal_color_);
        update_value();
        if (this->parent() != nullptr)
            this->parent()->Update();
        Edit::do_exit();
    }

private:
    TESK::Ustring* value_ = nullptr;
    Colour normal_color_ = desktop_colour;
};

using TAutoStringEdit = TAutoTextEdit<TEdit>;
using TAutoMemo = TAutoTextEdit<TMemo>;
