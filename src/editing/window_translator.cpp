#include "editing/window_translator.h"

#include "toolkit/check_box.h"
#include "toolkit/combo_box.h"
#include "toolkit/menu.h"
#include "toolkit/table.h"
#include "translation/translation_files.h"

#include <optional>
#include <vector>

namespace {

// Whether the text of such controls is a caption of the program's.
bool has_caption(Control_kind kind) {
    switch (kind) {
    case Control_kind::label:
    case Control_kind::button:
    case Control_kind::speed_button:
    case Control_kind::check_box:
    case Control_kind::radio_group:
    case Control_kind::group_box:
    case Control_kind::tab_sheet:
    case Control_kind::table:
    case Control_kind::splitter:
    case Control_kind::form: return true;
    default: return false;
    }
}

class Control_translator {
public:
    Control_translator(const std::string& language, const TESK::Translations_phrases& phrases)
        : language_(language), phrases_(phrases) {}

    // Whether anything changed.
    bool translate(TControl& control) const {
        bool changed = false;
        if (const auto hint = new_wording(control.native_hint(), control.hint())) {
            control.translate_hint(*hint);
            changed = true;
        }
        if (control.kind() == Control_kind::edit) {
            auto& edit = static_cast<TEdit&>(control);
            if (const auto prompt = new_wording(edit.native_prompt(), edit.prompt())) {
                edit.translate_prompt(*prompt);
                changed = true;
            }
        }
        if (control.kind() == Control_kind::main_menu)
            changed |= static_cast<TMainMenu&>(control).refresh_words();
        if (control.kind() == Control_kind::combo_box) {
            auto& combo = static_cast<TComboBox&>(control);
            if (const auto words = new_words(combo.native_words(), combo.items())) {
                combo.translate_words(*words);
                changed = true;
            }
        }
        if (control.kind() == Control_kind::table && !control.text_is_data())
            changed |= translate_captions(static_cast<TTable&>(control));
        if (control.text_is_data() || !has_caption(control.kind()))
            return changed;
        if (const auto text = new_wording(control.native_text(), control.text())) {
            control.translate_text(*text);
            changed = true;
        }
        if (control.kind() == Control_kind::radio_group) {
            auto& group = static_cast<TRadioGroup&>(control);
            if (const auto words = new_words(group.native_items(), group.items())) {
                group.translate_items(*words);
                changed = true;
            }
        }
        return changed;
    }

private:
    bool translate_captions(TTable& table) const {
        std::vector<std::string> captions;
        bool changed = false;
        for (int column = 0; column < table.column_count(); ++column) {
            const std::string& shown = table.shown_caption(column);
            const Table_column& own = table.columns()[static_cast<std::size_t>(column)];
            const auto caption = own.caption_is_data ? std::nullopt : new_wording(own.caption, shown);
            captions.push_back(caption.value_or(shown));
            changed |= caption.has_value();
        }
        table.translate_captions(captions);
        return changed;
    }

    // What to show for the program's words, if any of it differs from what is on view.
    std::optional<std::vector<std::string>> new_words(const std::vector<std::string>& native,
                                                      const std::vector<std::string>& shown) const {
        std::vector<std::string> words = shown;
        bool changed = false;
        for (std::size_t i = 0; i < native.size(); ++i)
            if (const auto word = new_wording(native[i], shown[i])) {
                words[i] = *word;
                changed = true;
            }
        return changed ? std::optional(words) : std::nullopt;
    }

    // What to show for the program's text, unless that is what is on view already. What the language has no
    // words for is shown as the program says it, not as a language before this one did.
    std::optional<std::string> new_wording(const std::string& native, const std::string& shown) const {
        const TESK::Ustring* translation = phrases_.find_translation(native, language_);
        const std::string& wording = translation == nullptr ? native : *translation;
        return wording == shown ? std::nullopt : std::optional(wording);
    }

    const std::string& language_;
    const TESK::Translations_phrases& phrases_;
};

} // namespace

bool translate_windows(TControl& window, const std::string& language,
                       const TESK::Translations_phrases* phrases, bool& changed) {
    changed = false;
    if (phrases == nullptr)
        return false;
    const Control_translator translator(language, *phrases);
    changed = !window.walk([&](TControl& control) { return !translator.translate(control); });
    return true;
}

void show_in_language(TControl& window, const std::string& language,
                      const TESK::Translations_phrases& phrases) {
    const Control_translator translator(language, phrases);
    translator.translate(window);
    window.walk([&](TControl& control) {
        translator.translate(control);
        return true;
    });
}

void load_program_translations(TESK::Translations_phrases& phrases, TESK::Program_directory& program,
                               TESK::Suite_directory& suite) {
    std::vector<TESK::Directory_name> folders = {program, program.get_application(), program.get_suite()};
    std::vector<TESK::Directory_name> with_common = folders;
    with_common.push_back(suite.get_common_directory());
    TESK::load_translations(phrases, folders, with_common);
}
