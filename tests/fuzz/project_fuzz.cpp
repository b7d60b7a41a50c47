// Any bytes are a project, and a project that was saved is read and saved again as it is.
#include "model/project_editor_parameters.h"
#include "round_trip.h"

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    expect_round_trip<Tilverra_project_editor_parameters>(
        std::string(reinterpret_cast<const char*>(data), size));
    return 0;
}
