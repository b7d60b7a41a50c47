// A text file that only grows: whole lines are added at its end, by as many processes as like to.
#pragma once

#include "platform/host_handle.h"
#include "platform/write_result.h"

#include <string_view>

namespace platform {

class Append_file {
public:
    // Opens the file, which is made where it is missing; its folder must be there. ready() tells how it went.
    explicit Append_file(std::string_view name);

    const Write_result& ready() const { return ready_; }

    // Adds the line, which holds no line end, and a line end, in one write. When only a part of it reaches
    // the disk the result is not ok, and the next line begins behind a line end: what was cut stays a line of
    // its own, whoever adds the next one.
    Write_result append(std::string_view line);

private:
    Host_handle file_;
    Write_result ready_;
    bool is_cut_ = false; // the file does not end in a line end
};

} // namespace platform
