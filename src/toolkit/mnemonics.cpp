#include "toolkit/mnemonics.h"

#include "toolkit/check_box.h"
#include "toolkit/label.h"
#include "toolkit/menu.h"
#include "toolkit/utf8.h"

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

// A letter of the Latin or the Cyrillic alphabet, in UTF-8.
std::string in_lower_case(std::string letter) {
    constexpr unsigned latin_capitals = 0xC3; // the first byte of the capitals with accents
    constexpr unsigned cyrillic_capitals = 0xD0;
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(letter[i]); };
    if (letter.size() == 1 && letter[0] >= 'A' && letter[0] <= 'Z')
        letter[0] = static_cast<char>(letter[0] - 'A' + 'a');
    else if (letter.size() == 2 && byte(0) == latin_capitals && byte(1) < 0x9F)
        letter[1] = static_cast<char>(byte(1) + 0x20);
    else if (letter.size() == 2 && byte(0) == cyrillic_capitals && byte(1) >= 0x90 && byte(1) < 0xB0) {
        // The small letters begin in the middle of one block of 64 and end in the next.
        letter[0] = static_cast<char>(byte(1) < 0xA0 ? cyrillic_capitals : cyrillic_capitals + 1);
        letter[1] = static_cast<char>(byte(1) < 0xA0 ? byte(1) + 0x20 : byte(1) - 0x20);
    }
    return letter;
}

// Those of the entries of one menu that mark the same letter.
void find_colliding_items(const std::vector<Menu_item>& items, std::vector<std::string>& found) {
    std::map<std::string, std::string> by_letter;
    for (const Menu_item& item : items) {
        const std::string caption = item.text_is_data ? "" : shown_text(item);
        const std::string letter = mnemonic_of(caption);
        const auto [other, is_first] = by_letter.emplace(letter, caption);
        if (!letter.empty() && !is_first)
            found.push_back(letter + ": " + other->second + ", " + caption);
        find_colliding_items(item.items, found);
    }
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
        std::size_t end = i + 1;
        while (end < text.size() && utf8::is_continuation(text[end]))
            ++end;
        return in_lower_case(text.substr(i, end - i));
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
        if (control.kind() == Control_kind::main_menu)
            for (const Menu_item& menu : static_cast<TMainMenu&>(control).items())
                find_colliding_items(menu.items, found);
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
