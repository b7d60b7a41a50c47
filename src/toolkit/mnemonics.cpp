#include "toolkit/mnemonics.h"

#include "toolkit/check_box.h"
#include "toolkit/label.h"
#include "toolkit/menu.h"

#include <algorithm>
#include <map>

namespace {

// The captions of a control that a key leads to, as they are on view.
std::vector<std::string> captions_of(TControl& control) {
    if (control.text_is_data())
        return {};
    switch (control.kind()) {
    case Control_kind::button:
    case Control_kind::speed_button:
    case Control_kind::check_box:
    case Control_kind::tab_sheet: return {control.text()};
    case Control_kind::label:
        return static_cast<TLabel&>(control).names_next() ? std::vector{control.text()}
                                                          : std::vector<std::string>();
    case Control_kind::radio_group: return static_cast<TRadioGroup&>(control).items();
    case Control_kind::main_menu: {
        std::vector<std::string> menus;
        for (const Menu_item& item : static_cast<TMainMenu&>(control).items())
            menus.push_back(shown_text(item));
        return menus;
    }
    default: return {};
    }
}

// Whether nothing that holds the control is hidden; a form that is not yet shown counts as shown.
bool can_be_seen(const TControl& control) {
    const TControl* at = &control;
    while (at && (at->visible() || at->kind() == Control_kind::form))
        at = at->parent();
    return !at;
}

// The pages that the control lies on, the outermost last.
std::vector<const TControl*> pages_of(const TControl& control) {
    std::vector<const TControl*> pages;
    for (const TControl* at = control.parent(); at; at = at->parent())
        if (at->kind() == Control_kind::tab_sheet)
            pages.push_back(at);
    return pages;
}

bool can_be_seen_together(const TControl& one, const TControl& other) {
    const auto pages = pages_of(one);
    const auto others = pages_of(other);
    return std::none_of(pages.begin(), pages.end(), [&](const TControl* page) {
        return std::any_of(others.begin(), others.end(), [&](const TControl* second) {
            return page != second && page->parent() == second->parent();
        });
    });
}

} // namespace

std::string without_mnemonic(const std::string& text) {
    std::string plain;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '&' && i + 1 < text.size())
            ++i;
        plain += text[i];
    }
    return plain;
}

std::string mnemonic_of(const std::string& text) {
    for (std::size_t i = 0; i + 1 < text.size(); ++i) {
        if (text[i] != '&')
            continue;
        if (text[++i] == '&')
            continue;
        const char letter = text[i];
        return {letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter};
    }
    return {};
}

std::vector<std::string> colliding_mnemonics(TControl& window) {
    struct Marked {
        const TControl* control;
        std::string caption;
    };
    std::map<std::string, std::vector<Marked>> by_letter;
    std::vector<std::string> found;
    window.walk([&](TControl& control) {
        for (const std::string& caption : captions_of(control)) {
            const std::string letter = mnemonic_of(caption);
            if (letter.empty() || !can_be_seen(control))
                continue;
            for (const Marked& other : by_letter[letter])
                if (can_be_seen_together(control, *other.control))
                    found.push_back(letter + ": " + other.caption + ", " + caption);
            by_letter[letter].push_back({&control, caption});
        }
        return true;
    });
    return found;
}
