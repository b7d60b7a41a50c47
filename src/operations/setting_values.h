// The values of settings as people write them, and which of them a setting takes.
#pragma once

#include "operations/record_settings.h"

#include <cstdint>
#include <string>

// The shortest decimal text that reads back as the number, without an exponent.
std::string shortest_number(float number);

// A date by its number: "1996-05-02", "" for none, and the number itself for one that is no day.
std::string date_in_words(std::int32_t number);

// The text that the setting's entry takes for the value, into `text`. Gives why there is none, in a plain
// English sentence; nothing when all is well.
std::string text_for_value(const Setting& setting, const std::string& value, std::string& text);
