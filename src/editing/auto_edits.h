// Edits that are bound to a number or a text of a record.
#pragma once

#include "editing/auto_entry.h"
#include "foundation/ustring.h"
#include "toolkit/edit.h"

#include <cstdint>
#include <functional>

// What the number edits share: the colours, and the filter that runs at every keystroke, on what is pasted as
// on what is typed.
class TAutoNumberEdit : public TAutoEntry<TEdit> {
public:
    // The control to the value. Does nothing while nothing is bound.
    virtual void update_value() = 0;

    // What happens when the focus leaves, in place of what the control does itself.
    std::function<void()> leave_handler;

    using TAutoEntry<TEdit>::restore_colour;

protected:
    explicit TAutoNumberEdit(std::string name);

    void do_change() override;
    void do_exit() override;
    // Drops what is no digit, no minus at the front and, where one is allowed, no first point.
    void clean(Edit_outcome& outcome) const override;
    virtual bool allows_point() const = 0;
};

// A number of 32 bits. The value follows every keystroke.
class TAutoFloat32Edit : public TAutoNumberEdit {
public:
    explicit TAutoFloat32Edit(std::string name) : TAutoNumberEdit(std::move(name)) {}

    // Null shows 0.
    void bind_to(float* number, std::uint8_t decimals, const char* help_URL);
    void Update() override;
    void update_value() override;

protected:
    void leave() override;
    bool allows_point() const override { return true; }
    std::string refusal(const std::string& refused) const override;

private:
    float* value = nullptr;
    std::uint8_t precision = 2;
};

// A whole number of 16 bits, likewise.
class TAutoInt16Edit : public TAutoNumberEdit {
public:
    explicit TAutoInt16Edit(std::string name) : TAutoNumberEdit(std::move(name)) {}

    void bind_to(std::int16_t* number, const char* help_URL);
    void Update() override;
    void update_value() override;

protected:
    void leave() override;
    // A number that 16 bits do not hold is not taken: the text stays as it was.
    void clean(Edit_outcome& outcome) const override;
    bool allows_point() const override { return false; }
    std::string refusal(const std::string& refused) const override;

private:
    std::int16_t* value = nullptr;
};

// A text of one line, and one of many. The value follows when the focus leaves.
template <class Edit>
class TAutoTextEdit : public TAutoEntry<Edit> {
public:
    explicit TAutoTextEdit(std::string name) : TAutoEntry<Edit>(std::move(name)) {
        this->input_filter = typable_text;
    }

    // Null shows nothing.
    void bind_to(TESK::Ustring* text, const char* help_URL) {
        value = text;
        Help_link::set(help_URL);
        Update();
    }
    void Update() override { this->set_text(value == nullptr ? "" : screen_text(*value)); }
    void update_value() {
        if (value != nullptr)
            value->assign(record_text(this->text()));
    }

protected:
    void leave() override {
        this->restore_colour();
        update_value();
        this->update_parent();
    }
    std::string refusal(const std::string& refused) const override { return untypable(refused); }

private:
    TESK::Ustring* value = nullptr;
};

using TAutoStringEdit = TAutoTextEdit<TEdit>;
using TAutoMemo = TAutoTextEdit<TMemo>;
