#include "toolkit/web_view.h"

#include "foundation/code_page_1252.h"
#include "toolkit/desktop.h"

bool is_web_address(const std::string& address) {
    const auto begins = [&](const char* scheme) {
        const std::string_view beginning(scheme);
        return TESK::equal_ignoring_case(std::string_view(address).substr(0, beginning.size()), beginning);
    };
    return begins("http:") || begins("https:") || begins("ftp:") || begins("mailto:");
}

void TWebView::navigate(const std::string& address) {
    address_ = address;
    notify(Aspect::page);
}

bool TWebView::follow(const std::string& address) {
    if (!begin_action())
        return false;
    if (!is_web_address(address))
        navigate(address);
    else if (current_desktop)
        current_desktop->open_web_address(address);
    return true;
}
