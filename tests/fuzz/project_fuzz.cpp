// Any bytes are a project, and a project that was saved is read and saved again as it is.
#include "model/project_editor_parameters.h"
#include "round_trip.h"

namespace {

class Fuzzed_project : public Tilverra_project_editor_parameters {
public:
    Fuzzed_project() : Tilverra_project_editor_parameters("model.exe") {}
};

} // namespace

void try_input(const std::string& input) {
    expect_round_trip<Fuzzed_project>(input);
}
