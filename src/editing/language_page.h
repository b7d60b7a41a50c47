// The page on which a user chooses the language of the screens, and what brings it there: at once to a form
// that appears and when a language is chosen, and bit by bit to what the program shows later.
#pragma once

#include "toolkit/check_box.h"
#include "toolkit/edit.h"
#include "toolkit/page_control.h"
#include "toolkit/screen_language.h"
#include "toolkit/timer.h"
#include "trees/user_settings.h"

#include <functional>
#include <string>
#include <vector>

namespace TESK {
class Translations_phrases;
}

class Language_page : private Screen_language {
public:
    // The settings outlive the page; the language that is chosen is theirs.
    Language_page(TTabSheet& sheet, TESK::User_settings& settings);
    ~Language_page() override;

    // What is translated, and by which phrases; all outlive the page. Null phrases offer no translation, null
    // settings remember none. The user's language is shown from here on.
    void bind(std::vector<TControl*> windows, const TESK::Translations_phrases* phrases,
              const TESK::Application_data_directory* user_settings_file);
    // Shows the language of the settings as the chosen one, and all windows in it. They give way to the
    // language that the user has chosen for all files, where that was ever done.
    void apply_settings();
    // The program has set texts: they are translated too.
    void translate_new_texts();

    std::function<void()> on_change; // another language is on view

    TTabSheet& tabsheet_translation;
    TRadioGroup& radiogroup_translation_target_language;
    TEdit& edit_translation_other;

private:
    std::string wording(const std::string& text) const override;
    void prepare(TForm& form) override;

    void radiogroup_translation_target_languageClick();
    void show_all();
    void remember() const;
    void translate();

    TESK::User_settings& settings_;
    std::vector<TControl*> windows_;
    const TESK::Translations_phrases* phrases_ = nullptr;
    const TESK::Application_data_directory* user_settings_file_ = nullptr;
    std::string translation_target_language; // empty for the program's own words
    TTimer timer_translation{300};
};
