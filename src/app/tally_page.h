// The page on which the variables to be tallied are chosen, and which statistics of them.
#pragma once

#include "app/project_page.h"
#include "editing/auto_choices.h"

class Tally_page : public Project_page {
public:
    explicit Tally_page(TTilverra_project_form& project_form);

    void bind();
    void Update();

    void GIS_GS_variable_listbox_onclick();
    void GIS_annl_variable_listbox_onclick();

    // The variables of one kind of table, and what is tallied of the one chosen.
    struct Lists {
        TListBox& variables;
        TLabel& choose_note; // until a variable is chosen
        TAutoBitCheckListBox& statistics;
        TAutoBitCheckListBox& prob_10;
        TAutoBitCheckListBox& prob_5;

        Lists(TTabSheet& page, const std::string& prefix);
        // Shows what of the variable under the cursor is tallied, as the words at its place say.
        template <class Masks>
        void bind_line(Masks& masks) {
            if (variables.item_index() < 0)
                return;
            choose_note.set_visible(false);
            const auto row = static_cast<std::size_t>(variables.item_index());
            bind_words(&masks.statistics[row], &masks.prob10[row], &masks.prob5[row]);
        }

    private:
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
