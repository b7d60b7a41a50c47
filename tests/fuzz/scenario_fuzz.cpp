// Any bytes are a scenario, and a scenario that was saved is read and saved again as it is.
#include "model/tilverra_scenario.h"
#include "round_trip.h"

namespace {

// On reading, a scenario asks the disk whether its rotation is there, and names events after the moment.
class Fuzzed_scenario : public Tilverra_scenario {
public:
    void postread() override {
        for (Common_event& event : TESK::Items_of<Common_event>(events))
            if (event.ID.empty())
                event.ID = "fuzzed";
        const bool has_no_mode = cropping_mode == Cropping_system_mode::none;
        if (has_no_mode)
            cropping_mode = Cropping_system_mode::single;
        Tilverra_scenario::postread();
        if (has_no_mode)
            cropping_mode = Cropping_system_mode::none;
    }
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    expect_round_trip<Fuzzed_scenario>(std::string(reinterpret_cast<const char*>(data), size));
    return 0;
}
