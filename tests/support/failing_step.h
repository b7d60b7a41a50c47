// Steps of writing that fail for a scope, as on a host that is full or broken.
#pragma once

#include "platform/file_writer.h"

#include <cerrno>

class Failing_step : public platform::File_faults {
public:
    Failing_step(platform::Write_step step, int error_number, std::size_t after_bytes = 0) {
        fail(step, error_number, after_bytes);
    }
};

class Full_disk : public Failing_step {
public:
    Full_disk() : Failing_step(platform::Write_step::write, ENOSPC) {}
};
