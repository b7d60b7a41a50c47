#include "app/tally_page.h"

namespace {

constexpr const char* statistics_captions[] = {"value", "sum", "mean",  "std_dev", "coef_var", "sum_sqrs",
                                               "min",   "max", "count", "median",  nullptr};
constexpr const char* prob_10_captions[] = {"10%", "20%", "30%", "40%",  "50%",  "60%",
                                            "70%", "80%", "90%", "100%", nullptr};
constexpr const char* prob_5_captions[] = {"5%",  "15%", "25%", "35%", "45%",  "55%",
                                           "65%", "75%", "85%", "95%", nullptr};

} // namespace

Tally_page::Lists::Lists(TTabSheet& page, const std::string& prefix)
    : variables([&]() -> TListBox& {
          TPanel& row = fill(add_row(page, ("panel_" + prefix).c_str()));
          return fill(row.add<TListBox>(prefix + "variable_listbox"), 3);
      }()),
      statistics(fill(variables.parent()->add<TAutoBitCheckListBox>(prefix + "stats_bitcheckbox"))),
      prob_10(fill(variables.parent()->add<TAutoBitCheckListBox>(prefix + "prob_10_bitcheckbox"))),
      prob_5(fill(variables.parent()->add<TAutoBitCheckListBox>(prefix + "prob_5_bitcheckbox"))) {
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

Tally_page::Tally_page(TPageControl& pages)
    : tabsheet_statistical_tally(pages.add<TTabSheet>("tabsheet_statistical_tally", "Statistical tallies")),
      tally_pagecontrol(fill(tabsheet_statistical_tally.add<TPageControl>("tally_pagecontrol"))),
      growing_season_tabsheet(
          tally_pagecontrol.add<TTabSheet>("growing_season_tabsheet", "Growing season variables")),
      annual_tabsheet(tally_pagecontrol.add<TTabSheet>("annual_tabsheet", "Annual variables")),
      growing_season(growing_season_tabsheet, "GIS_GS_"), annual(annual_tabsheet, "GIS_annl_") {}
