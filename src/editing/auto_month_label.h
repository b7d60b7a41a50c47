// A ruler of the year, on which other controls can be aligned: each month is as wide in pixels as it has
// days.
#pragma once

#include "toolkit/ruler.h"

class TAutoMonthLabel : public TRuler {
public:
    // A leap year until told otherwise.
    explicit TAutoMonthLabel(std::string name);

    bool non_leap() const { return non_leap_; }
    void set_non_leap(bool non_leap);

private:
    void Paint();

    bool non_leap_ = false;
};
