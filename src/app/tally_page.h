// The page on which the variables to be tallied are chosen, and which statistics of them.
#pragma once

#include "app/page_parts.h"
#include "editing/auto_choices.h"

struct Tally_page {
    explicit Tally_page(TPageControl& pages);

    // The variables of one kind of table, and what is tallied of the one chosen.
    struct Lists {
        TListBox& variables;
        TAutoBitCheckListBox& statistics;
        TAutoBitCheckListBox& prob_10;
        TAutoBitCheckListBox& prob_5;

        Lists(TTabSheet& page, const std::string& prefix);
        // Shows what is chosen in the three words; null shows nothing.
        void bind_words(std::uint32_t* statistics_word, std::uint32_t* prob_10_word,
                        std::uint32_t* prob_5_word);
    };

    TTabSheet& tabsheet_statistical_tally;
    TPageControl& tally_pagecontrol;
    TTabSheet& growing_season_tabsheet;
    TTabSheet& annual_tabsheet;
    Lists growing_season;
    Lists annual;
};
