// The values of settings as people write them, and which of them a setting takes.
#pragma once

#include "operations/record_settings.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

// The shortest decimal text that reads back as the number, without an exponent.
std::string shortest_number(float number);

// A date by its number: "1996-05-02", "" for none, and the number itself for one that is no day.
std::string date_in_words(std::int32_t number);

// The number of a date as date_in_words gives it, or of one that is no day; nothing for any other text.
std::optional<std::int32_t> date_number_of(const std::string& words);

// The text that the setting's entry takes for the value, into `text`. Gives why there is none, in a plain
// English sentence; nothing when all is well.
std::string text_for_value(const Setting& setting, const std::string& value, std::string& text);

// Why a program that reads the text from a file gets something else than stands there, in a plain English
// sentence; nothing when it does not. The setting has been read from it.
std::string reason_misread(const Setting& setting, std::string_view text);

// What would become of a value in a setting, by its type and its ranges.
struct Value_trial {
    bool taken = false;
    std::string reason;  // why it is not taken, or why it is doubtful; a plain English sentence
    std::string text{};  // what the setting's entry takes; with the other two, of a value that is taken
    std::string line{};  // what would stand behind the key in the file
    std::string value{}; // as Setting::value() would tell it
};
// The setting has its old value again afterwards.
Value_trial try_value(const Setting& setting, const std::string& value);
// The same for a key that no record declares.
Value_trial try_undeclared_value(const std::string& value);
// The number that a value is; nothing for any other text.
std::optional<double> number_of(const std::string& value);
