#include "app/tally_page.h"

#include "app/tilverra_project_form.h"
#include "model/tally_tables.h"

namespace {

constexpr const char* statistics_captions[] = {"value", "sum", "mean",  "std_dev", "coef_var", "sum_sqrs",
                                               "min",   "max", "count", "median",  nullptr};
constexpr const char* prob_10_captions[] = {"10%", "20%", "30%", "40%",  "50%",  "60%",
                                            "70%", "80%", "90%", "100%", nullptr};
constexpr const char* prob_5_captions[] = {"5%",  "15%", "25%", "35%", "45%",  "55%",
                                           "65%", "75%", "85%", "95%", nullptr};

// A list of what can be tallied, below its heading.
TAutoBitCheckListBox& add_list(TControl& row, const std::string& name, const char* heading) {
    TPanel& column = fill(row.add<TPanel>("panel_" + name));
    column.add<TLabel>("label_" + name, heading).set_names_next(true);
    return fill(column.add<TAutoBitCheckListBox>(name));
}

// Shows the variables of a table; what cannot be tallied is faint.
template <class Rows>
void show_variables(TListBox& list, const Rows& rows, const char* (*line_of)(std::size_t row)) {
    std::vector<std::string> lines;
    for (std::size_t row = 0; row < rows.size(); ++row)
        lines.emplace_back(line_of(row));
    list.set_lines(lines);
    for (std::size_t row = 0; row < rows.size(); ++row)
        list.set_line_faint(static_cast<int>(row), lines[row] == not_talliable);
}

} // namespace

Tally_page::Lists::Lists(TTabSheet& page, const std::string& prefix)
    : variables([&]() -> TListBox& {
          TPanel& row = fill(add_row(page, ("panel_" + prefix).c_str()));
          return fill(row.add<TListBox>(prefix + "variable_listbox"), 3);
      }()),
      choose_note(add_note(page, (prefix + "choose_note").c_str(),
                           "Choose a variable to select what of it is tallied.")),
      statistics(add_list(*variables.parent(), prefix + "stats_bitcheckbox", "Statistics")),
      prob_10(add_list(*variables.parent(), prefix + "prob_10_bitcheckbox", "10% probabilities")),
      prob_5(add_list(*variables.parent(), prefix + "prob_5_bitcheckbox", "5% probabilities")) {
    statistics.set_hint("Statistics of the variable");
    prob_10.set_hint("Probabilities, in steps of 10%");
    prob_5.set_hint("Probabilities, in steps of 5%");
    add_note(page, ("label_" + prefix + "note").c_str(),
             "'Value' is not used in this context (no need to select it)");
}

void Tally_page::Lists::bind_words(std::uint32_t* statistics_word, std::uint32_t* prob_10_word,
                                   std::uint32_t* prob_5_word) {
    statistics.bind_to(statistics_word, statistics_captions, nullptr);
    prob_10.bind_to(prob_10_word, prob_10_captions, nullptr);
    prob_5.bind_to(prob_5_word, prob_5_captions, nullptr);
}

Tally_page::Tally_page(TTilverra_project_form& project_form)
    : Project_page(project_form), tabsheet_statistical_tally(form.project_pagecontrol.add<TTabSheet>(
                                      "tabsheet_statistical_tally", "Statistical tallies")),
      tally_pagecontrol(fill(tabsheet_statistical_tally.add<TPageControl>("tally_pagecontrol"))),
      growing_season_tabsheet(
          tally_pagecontrol.add<TTabSheet>("growing_season_tabsheet", "Growing season variables")),
      annual_tabsheet(tally_pagecontrol.add<TTabSheet>("annual_tabsheet", "Annual variables")),
      growing_season(growing_season_tabsheet, "GIS_GS_"), annual(annual_tabsheet, "GIS_annl_") {
    growing_season.variables.on_click = [this] { GIS_GS_variable_listbox_onclick(); };
    annual.variables.on_click = [this] { GIS_annl_variable_listbox_onclick(); };
}

void Tally_page::bind() {
    show_variables(growing_season.variables, growing_season_tally_rows, get_growing_season_tally_line);
    show_variables(annual.variables, annual_tally_rows, get_annual_tally_line);
}

void Tally_page::Update() {
    for (Lists* lists : {&growing_season, &annual})
        for (TAutoBitCheckListBox* words : {&lists->statistics, &lists->prob_10, &lists->prob_5})
            words->Update();
}

void Tally_page::GIS_GS_variable_listbox_onclick() {
    if (has_project())
        growing_season.bind_line(record().growing_season_tally);
}

void Tally_page::GIS_annl_variable_listbox_onclick() {
    if (has_project())
        annual.bind_line(record().annual_tally);
}
