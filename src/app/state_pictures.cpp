#include "app/state_pictures.h"

namespace {

using namespace sign_colours;

constexpr Picture nothing_yet{Shape::ring, grey, Mark::none, false, ""};
constexpr Picture at_work{Shape::triangle, blue, Mark::none, false, ""};
constexpr Picture well{Shape::disc, green, Mark::tick, false, ""};
constexpr Picture badly{Shape::octagon, red, Mark::cross, false, ""};
constexpr Picture halted{Shape::square, grey, Mark::dash, false, ""};
constexpr Picture needs_a_look{Shape::diamond, orange, Mark::exclamation, false, ""};

constexpr Picture not_known{Shape::ring, orange, Mark::question, false, ""};

Picture meaning(Picture picture, const char* word) {
    picture.meaning = word;
    return picture;
}

} // namespace

Picture picture_of(Run_state state) {
    const char* const word = word_for(state);
    switch (state) {
    case Run_state::waiting: return meaning(nothing_yet, word);
    case Run_state::running: return meaning(at_work, word);
    case Run_state::done: return meaning(well, word);
    case Run_state::failed: return meaning(badly, word);
    case Run_state::stopped: return meaning(halted, word);
    case Run_state::crashed: return meaning(needs_a_look, word);
    }
    return {};
}

Picture picture_of(Scenario_state state) {
    const char* const word = word_for(state);
    switch (state) {
    case Scenario_state::never_run: return meaning({}, word);
    case Scenario_state::waiting: return meaning(nothing_yet, word);
    case Scenario_state::running: return meaning(at_work, word);
    case Scenario_state::done: return meaning(well, word);
    case Scenario_state::failed: return meaning(badly, word);
    case Scenario_state::stopped: return meaning(halted, word);
    case Scenario_state::out_of_date: return meaning(needs_a_look, word);
    case Scenario_state::unknown: return meaning(not_known, word);
    }
    return {};
}
