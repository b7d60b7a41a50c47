#include "editing/language_page.h"

#include "editing/bound_control.h"
#include "editing/page_parts.h"
#include "editing/window_translator.h"
#include "toolkit/desktop.h"
#include "translation/translations_phrases.h"

#include <algorithm>
#include <iterator>

namespace {

// The codes of the languages in the order of the group; the last item takes what is typed.
constexpr const char* language_codes[] = {"", "en", "fr", "es", "it", "ca", "de", "ru", "uz", "ar"};
constexpr int other_language = std::size(language_codes);

// The section of the user's settings that holds for all files: no file has such a full name.
constexpr const char* section_of_all_files = "all files";
constexpr const char* never_chosen = "?";

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
    edit_translation_other.set_prompt("Code of another language");
    add_note(sheet, "label_translation_note",
             "You may need to restart the program if the text is not currently the default native language.");
    radiogroup_translation_target_language.set_item_index(0);
    radiogroup_translation_target_language.on_click = [this] {
        radiogroup_translation_target_languageClick();
    };
    edit_translation_other.on_change = [this] { radiogroup_translation_target_languageClick(); };
    timer_translation.on_timer = [this] { translate(); };
    timer_translation.follow_user_actions();
}

Language_page::~Language_page() {
    if (current_screen_language == this)
        current_screen_language = nullptr;
}

void Language_page::bind(std::vector<TControl*> windows, const TESK::Translations_phrases* phrases,
                         const TESK::Application_data_directory* user_settings_file) {
    windows_ = std::move(windows);
    phrases_ = phrases;
    user_settings_file_ = user_settings_file;
    tabsheet_translation.set_visible(phrases != nullptr);
    if (phrases_ == nullptr)
        return;
    current_screen_language = this;
    apply_settings();
}

void Language_page::apply_settings() {
    if (phrases_ == nullptr)
        return;
    if (user_settings_file_ != nullptr) {
        TESK::User_settings of_all_files;
        of_all_files.language = never_chosen;
        user_settings_file_->load(of_all_files, section_of_all_files);
        if (of_all_files.language != never_chosen)
            settings_.language = of_all_files.language;
    }
    const auto* code = std::find(std::begin(language_codes), std::end(language_codes), settings_.language);
    radiogroup_translation_target_language.set_item_index(
        static_cast<int>(code - std::begin(language_codes)));
    if (code == std::end(language_codes))
        edit_translation_other.set_text(screen_text(settings_.language));
    translation_target_language = settings_.language;
    show_all();
}

void Language_page::radiogroup_translation_target_languageClick() {
    if (phrases_ == nullptr)
        return;
    const int index = std::max(radiogroup_translation_target_language.item_index(), 0);
    settings_.language =
        index == other_language ? record_text(edit_translation_other.text()) : language_codes[index];
    translation_target_language = settings_.language;
    show_all();
    remember();
}

// The language is the user's: it holds for every file from now on, whether this one is saved or not.
void Language_page::remember() const {
    if (user_settings_file_ == nullptr)
        return;
    TESK::User_settings of_all_files;
    of_all_files.language = settings_.language;
    user_settings_file_->save(of_all_files, section_of_all_files);
}

void Language_page::show_all() {
    for (TControl* const window : windows_)
        show_in_language(*window, translation_target_language, *phrases_);
    if (current_desktop != nullptr)
        current_desktop->use_language(translation_target_language);
    if (on_change)
        on_change();
}

std::string Language_page::wording(const std::string& text) const {
    return phrases_->wording(text, translation_target_language);
}

void Language_page::prepare(TForm& form) {
    show_in_language(form, translation_target_language, *phrases_);
}

// One control a time; once none changes there is no more to do until the user acts or the program sets other
// texts.
void Language_page::translate() {
    bool changed = false;
    for (TControl* const window : windows_)
        if (!changed)
            translate_windows(*window, translation_target_language, phrases_, changed);
    timer_translation.set_enabled(changed);
}

void Language_page::translate_new_texts() {
    if (phrases_ != nullptr && !translation_target_language.empty())
        timer_translation.set_enabled(true);
}
