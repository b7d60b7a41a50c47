#include "editing/auto_edits.h"

#include "foundation/code_page_1252.h"
#include "foundation/numbers.h"
#include "toolkit/utf8.h"

#include <algorithm>

TAutoNumberEdit::TAutoNumberEdit(std::string name) : TAutoEntry<TEdit>(std::move(name)) {
    set_right_aligned(true);
}

void TAutoNumberEdit::do_change() {
    clean_up(allows_point());
    update_value();
    TEdit::do_change();
}

void TAutoNumberEdit::do_exit() {
    if (leave_handler) {
        leave_handler();
        TEdit::do_exit();
    } else {
        TAutoEntry<TEdit>::do_exit();
    }
}

void TAutoNumberEdit::clean_up(bool allow_point) {
    std::string kept;
    int cleaned_caret = caret();
    int points = 0;
    for (std::size_t i = 0; i < text().size(); ++i) {
        const char c = text()[i];
        points += c == '.' ? 1 : 0;
        if (TESK::is_digit(c) || (c == '-' && i == 0) || (allow_point && c == '.' && points == 1))
            kept += c;
        else if (!utf8::is_continuation(c))
            --cleaned_caret;
    }
    if (kept.size() == text().size())
        return;
    set_text(kept);
    set_modified(true);
    set_caret(std::max(cleaned_caret, 0));
}

void TAutoFloat32Edit::bind_to(float* number, std::uint8_t decimals, const char* help_URL) {
    value = number;
    precision = decimals;
    Help_link::set(help_URL);
    Update();
}

void TAutoFloat32Edit::Update() {
    set_text(TESK::float32_to_cstr(value == nullptr ? 0 : *value, precision));
}

void TAutoFloat32Edit::update_value() {
    if (value != nullptr)
        *value = static_cast<float>(TESK::parse_float64(text().c_str()));
}

void TAutoFloat32Edit::leave() {
    if (!enabled())
        return;
    restore_colour();
    update_value();
    update_parent();
}

void TAutoInt16Edit::bind_to(std::int16_t* number, const char* help_URL) {
    value = number;
    Help_link::set(help_URL);
    Update();
}

void TAutoInt16Edit::Update() {
    std::string number;
    TESK::append_integer(number, value == nullptr ? 0 : *value);
    set_text(number);
}

void TAutoInt16Edit::update_value() {
    if (value != nullptr)
        *value = static_cast<std::int16_t>(TESK::parse_integer(text().c_str()));
}

void TAutoInt16Edit::leave() {
    update_value();
    if (!enabled())
        return;
    restore_colour();
    update_parent();
}
