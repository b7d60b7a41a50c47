#include "editing/language_page.h"

#include "editing/bound_control.h"
#include "editing/page_parts.h"
#include "editing/window_translator.h"

#include <algorithm>
#include <iterator>

namespace {

// The codes of the languages in the order of the group; the last item takes what is typed.
constexpr const char* language_codes[] = {"", "en", "fr", "es", "it", "ca", "de", "ru", "uz", "ar"};
constexpr int other_language = std::size(language_codes);

} // namespace

Language_page::Language_page(TTabSheet& sheet, TESK::User_settings& settings)
    : tabsheet_translation(sheet),
      radiogroup_translation_target_language(sheet.add<TRadioGroup>(
          "radiogroup_translation_target_language", "Target Language",
          std::vector<std::string>{"(native)", "English", "French", "Spanish", "Italian", "Catalan", "German",
                                   "Russian", "Uzbek", "Arabic", "(Other)"})),
      edit_translation_other(sheet.add<TEdit>("edit_translation_other")), settings_(settings) {
    edit_translation_other.set_hint("Normally enter the two character ISO 639-1 language code (or the code "
                                    "used in the translation files)");
    add_note(sheet, "label_translation_note",
             "You may need to restart the program if the text is not currently the default native language.");
    radiogroup_translation_target_language.set_item_index(0);
    radiogroup_translation_target_language.on_click = [this] {
        radiogroup_translation_target_languageClick();
    };
    edit_translation_other.on_change = [this] { radiogroup_translation_target_languageClick(); };
    timer_translation.on_timer = [this] { translate(); };
}

void Language_page::bind(std::vector<TControl*> windows, const TESK::Translations_phrases* phrases,
                         const std::string& native_language) {
    windows_ = std::move(windows);
    phrases_ = phrases;
    native_language_ = native_language;
    tabsheet_translation.set_visible(phrases != nullptr);
}

void Language_page::apply_settings() {
    if (settings_.language.empty() || phrases_ == nullptr)
        return;
    translation_target_language = settings_.language;
    const auto* code = std::find(std::begin(language_codes), std::end(language_codes), settings_.language);
    radiogroup_translation_target_language.set_item_index(
        static_cast<int>(code - std::begin(language_codes)));
    if (code == std::end(language_codes))
        edit_translation_other.set_text(screen_text(settings_.language));
    timer_translation.set_enabled(true);
}

void Language_page::radiogroup_translation_target_languageClick() {
    if (phrases_ == nullptr)
        return;
    const int index = radiogroup_translation_target_language.item_index();
    if (index <= 0) {
        translation_target_language = native_language_;
        settings_.language = "";
        timer_translation.set_enabled(false);
        return;
    }
    translation_target_language =
        index == other_language ? record_text(edit_translation_other.text()) : language_codes[index];
    settings_.language = translation_target_language;
    timer_translation.set_enabled(!translation_target_language.empty());
}

// One control a time; once none changes there is no more to do until the program sets other texts.
void Language_page::translate() {
    bool changed = false;
    for (TControl* const window : windows_)
        if (!changed)
            translate_windows(*window, translation_target_language, phrases_, changed);
    timer_translation.set_enabled(changed);
}

void Language_page::translate_new_texts() {
    if (phrases_ != nullptr && !settings_.language.empty())
        timer_translation.set_enabled(true);
}
