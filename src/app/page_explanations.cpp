#include "app/page_explanations.h"

#include <string_view>

namespace {

struct Explanation {
    const char* page;
    const char* text;
};

constexpr Explanation explanations[] = {
    {"scenario_edit_tabsheet", "Make scenarios, open them in the scenario editor, import and delete them. "
                               "Choose one in the list on the "
                               "left: it becomes the active scenario."},
    {"scenario_run_tabsheet", "Run the active scenario or the ticked ones, one after the other or beside the "
                              "editor, and look at their "
                              "output."},
    {"scenario_reset_tabsheet",
     "Copy parts of the active scenario into the ticked ones. Everything else in those stays as it is."},
    {"scenario_analysis_tabsheet",
     "Compare the output of the active scenario with that of the ticked ones, or of a scenario elsewhere."},
    {"runs_tabsheet", "Follow the sets of runs that work beside the editor: stop and continue them, run "
                      "again what failed, and "
                      "read what the model printed."},
    {"settings_tabsheet",
     "See the settings of the active scenario and the ticked ones side by side, and change them. Nothing is "
     "changed in the files before you press Apply."},
    {"generation_tabsheet",
     "Make a scenario of each combination of the project's parameter files, from a template scenario."},
    {"model_tabsheet",
     "Choose the simulation model, and the kind of project: runs over a map, optimizations."},
    {"data_sources_tabsheet", "Say where the soil data of STATSGO lie on this computer."},
    {"tabsheet_optimization",
     "Give the ranges and steps of what is to be varied. The optimizer runs every combination of them."},
    {"GIS_maps_tabsheet",
     "Choose the attribute table of a map, and say which attribute supplies which parameter of a scenario."},
    {"STATSGO_tabsheet", "Choose the soils of a map from the data of STATSGO."},
    {"GIS_tallies_tabsheet", "Choose which results of the polygons are summed up, and by what."},
    {"GIS_run_tabsheet", "Say how the scenarios of the polygons are run."},
    {"GIS_analysis_tabsheet", "Say what is made of the results of all polygons."},
    {"GIS_output_tabsheet", "See the tables that a run over the map has left, and open them."},
    {"map_tabsheet", "See the polygons of the map in the colours of an attribute or of a result."},
    {"tabsheet_statistical_tally",
     "Choose a variable, then tick the statistics and probabilities that are to be worked out for it."},
    {"tabsheet_scenario_comparison", "Look at the differences that comparisons of scenarios have left."},
    {"tabsheet_details", "A page that describes this project, for you and for others."},
    {"tabsheet_notes", "Your notes on this project. They lie as a text in its folder."},
    {"tabsheet_help", "Where the documentation lies, on this computer and on the web."},
    {"tabsheet_commands", "The programs that were started from here, with all that they were told."},
    {"tabsheet_status", "What programs of the suite have found when they worked on this project."},
    {"tabsheet_translation", "Choose the language of the screens."},
};

} // namespace

const char* explanation_of_page(const char* page) {
    for (const Explanation& explanation : explanations)
        if (std::string_view(explanation.page) == page)
            return explanation.text;
    return nullptr;
}
