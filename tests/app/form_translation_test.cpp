#include "project_support.h"

#include "app/database_editor_form.h"
#include "app/facts_form.h"
#include "app/file_manager_form.h"
#include "app/new_name_form.h"
#include "app/page_explanations.h"
#include "app/scenario_table_form.h"
#include "editing/auto_calendar.h"
#include "editing/window_translator.h"
#include "support/worded.h"
#include "toolkit/check_box.h"
#include "toolkit/combo_box.h"
#include "toolkit/mnemonics.h"
#include "translation/translation_files.h"

#include <set>

namespace {

// Signs, names, and units that are the same in every language.
const std::set<std::string> kept = {"",      "X", "?",   "...", "\xE2\x9C\x93", "%",      "ha",
                                    "kg/ha", "m", "CO2", "FAQ", "GIS",          "STATSGO"};

bool is_caption(const TControl& control) {
    switch (control.kind()) {
    case Control_kind::label:
    case Control_kind::button:
    case Control_kind::speed_button:
    case Control_kind::check_box:
    case Control_kind::radio_group:
    case Control_kind::group_box:
    case Control_kind::tab_sheet: return !control.text_is_data();
    default: return false;
    }
}

class Form_translation : public Project_test, public testing::WithParamInterface<Tilverra_project_type> {
protected:
    Form_translation() {
        const TESK::Directory_name folder(platform::name_from_host_path(EXAMPLES "/translations"));
        TESK::load_translations(phrases, {folder}, {folder});
    }

    void expect_told(const std::string& text) {
        if (kept.contains(text) || !checked.insert(text).second)
            return;
        for (const char* language : {"es", "fr", "ru"})
            EXPECT_NE(phrases.find_translation(text, language), nullptr) << language << ": " << text;
    }

    // What the menu says, below all its captions.
    void expect_items_told(std::vector<Menu_item>& items) {
        for (Menu_item& item : items) {
            if (item.text_is_data || item.text == "-")
                continue;
            expect_told(item.text);
            for (const char* language : {"es", "fr", "ru"}) {
                const TESK::Ustring* const shown = phrases.find_translation(item.text, language);
                EXPECT_TRUE(shown == nullptr || mnemonic_of(item.text).empty() ||
                            !mnemonic_of(*shown).empty())
                    << language << ": " << item.text;
            }
            const bool tells_a_change = item.text.starts_with("&Undo") && item.enabled;
            if (!tells_a_change)
                expect_told(item.hint);
            expect_items_told(item.items);
        }
    }

    // The program's texts as they stand on the form now, and that no letter leads to two of them in any
    // language.
    void expect_all_told(TControl& shown) {
        for (const char* language : {"es", "fr", "ru", ""}) {
            const Worded words([&](const std::string& text) {
                const TESK::Ustring* found = phrases.find_translation(text, language);
                return found == nullptr ? text : std::string(*found);
            });
            show_in_language(shown, language, phrases);
            EXPECT_EQ(colliding_mnemonics(shown), std::vector<std::string>()) << language;
        }
        shown.walk([&](TControl& control) {
            if (control.kind() == Control_kind::main_menu) {
                auto& menus = static_cast<TMainMenu&>(control).items();
                update_items(menus);
                expect_items_told(menus);
            }
            if (const char* explanation = explanation_of_page(control.name().c_str()))
                expect_told(explanation);
            if (is_caption(control))
                expect_told(control.native_text());
            if (control.kind() == Control_kind::radio_group && !control.text_is_data())
                for (const std::string& item : static_cast<TRadioGroup&>(control).native_items())
                    expect_told(item);
            if (control.kind() == Control_kind::edit)
                expect_told(static_cast<TEdit&>(control).native_prompt());
            if (control.kind() == Control_kind::combo_box)
                for (const std::string& word : static_cast<TComboBox&>(control).native_words())
                    expect_told(word);
            if (control.kind() == Control_kind::table && !control.text_is_data()) {
                expect_told(control.native_text());
                for (const Table_column& column : static_cast<TTable&>(control).columns())
                    expect_told(column.caption_is_data ? "" : column.caption);
            }
            const bool names_file = control.hint().find(":\\") != std::string::npos;
            if (!names_file)
                expect_told(control.native_hint());
            return true;
        });
    }

    TESK::Translations_phrases phrases;
    std::set<std::string> checked;
};

TEST_P(Form_translation, reaches_every_caption_and_hint_of_the_project_in_its_states) {
    copy_data("fields.dbf", "projects/study/fields.dbf");
    for (const char* file : {"C:\\projects\\study.tvp", "C:\\projects\\study\\.TVS_project"}) {
        open(file, GetParam());
        expect_all_told(parameter_form);
        for (const char* chosen : {"<None>", "gone", "C:\\projects\\study\\Scenarios\\dry.tvn"}) {
            record->template_scenario.assign(chosen);
            record->active_scenario.assign(chosen);
            record->GIS_parameters.coverage_PAT_filename = "C:\\projects\\study\\fields.dbf";
            form.Update();
            expect_all_told(parameter_form);
            form.optimization.tabsheet_optimization.bring_to_front();
            expect_all_told(parameter_form);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Of_type, Form_translation,
                         testing::Values(Tilverra_project_type::tilverra, Tilverra_project_type::gis,
                                         Tilverra_project_type::watershed, Tilverra_project_type::grazing));

TEST_F(Form_translation, reaches_every_caption_and_hint_of_the_dialogs) {
    Trecent_file_selector_form selector;
    expect_all_told(selector);
    TESK::Date date(2024060);
    TAutoCalendar_form calendar;
    calendar.bind_to(&date, nullptr, true, nullptr);
    expect_all_told(calendar);
    expect_told(calendar.hint());
    Tfacts_form facts("Versions");
    expect_all_told(facts);
    expect_told(facts.native_text());
    for (const char* button : {"&OK", "Cancel", "&Yes", "&No", "&Abort", "&Retry", "&Ignore"})
        expect_told(button);
    Tnew_name_form_check_used new_name;
    expect_all_told(new_name);
    Tdatabase_editor_form databases(nullptr);
    expect_all_told(databases);
    struct No_reader : Table_reader {
        Text_table read(std::string_view) override { return {}; }
    } reader;
    Tscenario_table_form from_table(reader, TESK::File_name(""), TESK::Directory_name(""));
    expect_all_told(from_table);
    TFile_manager_form manager{TVN_filename("noname")};
    expect_all_told(manager);
}

} // namespace
