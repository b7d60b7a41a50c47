#include "editing/bound_control.h"

#include "foundation/code_page_1252.h"
#include "toolkit/screen_language.h"
#include "toolkit/utf8.h"

std::string screen_text(const std::string& record_text) {
    return TESK::utf8_from_code_page(record_text);
}

std::string typable_text(const std::string& screen_text) {
    if (TESK::code_page_from_utf8(screen_text))
        return screen_text;
    std::string typable;
    for (std::size_t start = 0; start < screen_text.size();) {
        std::size_t end = start + 1;
        while (end < screen_text.size() && utf8::is_continuation(screen_text[end]))
            ++end;
        const std::string character = screen_text.substr(start, end - start);
        if (TESK::code_page_from_utf8(character))
            typable += character;
        start = end;
    }
    return typable;
}

std::string record_text(const std::string& screen_text) {
    return TESK::code_page_from_utf8(typable_text(screen_text)).value_or("");
}

std::string untypable(const std::string& refused) {
    return worded("The file cannot hold these characters: %1", refused);
}

void update_parent_of(const TControl& control) {
    if (control.parent() != nullptr)
        control.parent()->Update();
}

void Help_link::set(const char* help_URL) {
    if (help_URL == nullptr)
        return;
    if (!help_URL_)
        help_URL_.emplace();
    help_URL_->set(std::string(help_URL));
}

void Help_link::open() {
    const bool opens =
        help_URL_ && (help_URL_->exists() || help_URL_->contains("http:") || help_URL_->contains("HTTP:"));
    if (opens)
        help_URL_->open();
}
