// The page on which a user chooses the language of the screens, and the passes that bring it there.
#pragma once

#include "toolkit/check_box.h"
#include "toolkit/edit.h"
#include "toolkit/page_control.h"
#include "toolkit/timer.h"
#include "trees/user_settings.h"

#include <string>
#include <vector>

namespace TESK {
class Translations_phrases;
}

class Language_page {
public:
    // The settings outlive the page; the language that is chosen is theirs.
    Language_page(TTabSheet& sheet, TESK::User_settings& settings);

    // What is translated, and by which phrases; all outlive the page. Null phrases offer no translation.
    void bind(std::vector<TControl*> windows, const TESK::Translations_phrases* phrases,
              const std::string& native_language);
    // Shows the language of the settings as the chosen one, and begins to translate into it.
    void apply_settings();
    // The program has set texts: they are translated too.
    void translate_new_texts();

    TTabSheet& tabsheet_translation;
    TRadioGroup& radiogroup_translation_target_language;
    TEdit& edit_translation_other;

private:
    void radiogroup_translation_target_languageClick();
    void translate();

    TESK::User_settings& settings_;
    std::vector<TControl*> windows_;
    const TESK::Translations_phrases* phrases_ = nullptr;
    std::string native_language_;
    std::string translation_target_language;
    TTimer timer_translation{300};
};
