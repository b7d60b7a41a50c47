// What stands above a text or a page that is too long to be shown whole: it says so, and opens the whole of
// it elsewhere.
#pragma once

#include "editing/page_parts.h"

#include <functional>
#include <string>

class Long_text_note {
public:
    // Hidden until the text is too long.
    Long_text_note(TControl& page, const std::string& name, const char* text, const char* button_caption)
        : panel(add_row(page, name.c_str())) {
        fill(panel.add<TLabel>(name + "_label", text, true));
        panel.add<TButton>(name + "_button", button_caption).on_click = [this] {
            if (on_open)
                on_open();
        };
        panel.set_visible(false);
    }
    Long_text_note(const Long_text_note&) = delete;
    Long_text_note& operator=(const Long_text_note&) = delete;

    std::function<void()> on_open;

    TPanel& panel;
};

constexpr const char* cut_text_note =
    "This text is too long to be edited here, and only its beginning is shown. The text editor shows all of "
    "it.";
