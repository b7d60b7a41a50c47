#include "editing/auto_edits.h"

#include "foundation/code_page_1252.h"
#include "foundation/numbers.h"
#include "toolkit/screen_language.h"
#include "toolkit/utf8.h"

#include <algorithm>
#include <limits>

namespace {

bool fits_int16(const std::string& digits) {
    using Limits = std::numeric_limits<std::int16_t>;
    constexpr std::size_t longest = 5;
    const std::size_t first = std::min(digits.find_first_not_of("-0"), digits.size());
    const auto number = TESK::parse_integer(digits.c_str());
    return digits.size() - first <= longest && number >= Limits::min() && number <= Limits::max();
}

} // namespace

TAutoNumberEdit::TAutoNumberEdit(std::string name) : TAutoEntry<TEdit>(std::move(name)) {
    set_right_aligned(true);
}

void TAutoNumberEdit::do_change() {
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

// The caret steps back once for each character that goes, wherever it stood.
void TAutoNumberEdit::clean(Edit_outcome& outcome) const {
    std::string kept;
    int points = 0;
    for (std::size_t i = 0; i < outcome.text.size(); ++i) {
        const char c = outcome.text[i];
        points += c == '.' ? 1 : 0;
        if (TESK::is_digit(c) || (c == '-' && i == 0) || (allows_point() && c == '.' && points == 1)) {
            kept += c;
        } else {
            outcome.refused += c;
            outcome.caret -= utf8::is_continuation(c) ? 0 : 1;
        }
    }
    outcome.text = kept;
    outcome.caret = std::max(outcome.caret, 0);
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

std::string TAutoFloat32Edit::refusal(const std::string&) const {
    return worded("Only digits, a minus sign in front and one point can stand here.");
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

void TAutoInt16Edit::clean(Edit_outcome& outcome) const {
    TAutoNumberEdit::clean(outcome);
    if (fits_int16(outcome.text))
        return;
    outcome = {text(), caret(), outcome.text, outcome.differs};
}

std::string TAutoInt16Edit::refusal(const std::string& refused) const {
    return worded(fits_int16(refused) ? "Only digits and a minus sign in front can stand here."
                                      : "Only a whole number from -32768 to 32767 can stand here.");
}

void TAutoInt16Edit::leave() {
    update_value();
    if (!enabled())
        return;
    restore_colour();
    update_parent();
}
