// Any bytes are a scenario, and a scenario that was saved is read and saved again as it is.
#include "model/tilverra_scenario.h"
#include "round_trip.h"

#include <algorithm>

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

// A count of thousands of events takes the time of thousands of inputs and shows no more than one of nine.
std::string with_few_events(std::string text) {
    for (std::size_t at = text.find("count"); at != std::string::npos; at = text.find("count", at)) {
        const std::size_t end = std::min(text.find('\n', at), text.size());
        at = std::min(text.find('=', at), end);
        at = std::min(text.find_first_of("0123456789", at), end - 1) + 1;
        std::replace_if(
            text.begin() + static_cast<std::ptrdiff_t>(at), text.begin() + static_cast<std::ptrdiff_t>(end),
            [](char c) { return c >= '0' && c <= '9'; }, ' ');
    }
    return text;
}

} // namespace

void try_input(const std::string& input) {
    expect_round_trip<Fuzzed_scenario>(with_few_events(input));
}
