// Shows a local page and follows its links; what is on the web is handed to the user's browser.
#pragma once

#include "toolkit/control.h"

// Whether a text is an address that the user's browser takes care of, by its beginning.
bool is_web_address(const std::string& address);

class TWebView : public TControl {
public:
    explicit TWebView(std::string name) : TControl(Control_kind::web_view, std::move(name)) {
        set_takes_focus(true);
    }

    // A local page, by the program's own name for it, perhaps with "#" and a place in the page; a web
    // address, which is shown as a link to it; empty for an empty page.
    const std::string& address() const { return address_; }
    void navigate(const std::string& address);
    void reload() { notify(Aspect::page); }

    // What a user does: follows a link to a local page, which is then shown, or to the web.
    bool follow(const std::string& address);

private:
    std::string address_;
};
