// Short ways to make what pages are made of.
#pragma once

#include "toolkit/button.h"
#include "toolkit/check_box.h"
#include "toolkit/label.h"
#include "toolkit/page_control.h"

#include <string>

// The control takes the room to spare, in a share.
template <class Control>
Control& fill(Control& control, int share = 1) {
    Place place = control.place();
    place.stretch = share;
    control.set_place(place);
    return control;
}

inline TPanel& add_row(TControl& parent, const char* name) {
    return parent.add<TPanel>(name, Layout::row);
}

inline TButton& add_button(TControl& parent, const char* name, const char* caption, const char* hint = "") {
    TButton& button = parent.add<TButton>(name, caption);
    button.set_hint(hint);
    return button;
}

inline TLabel& add_note(TControl& parent, const char* name, const char* text) {
    return parent.add<TLabel>(name, text, true);
}

// As wide as its caption.
inline void keep_narrow(TButton& button) {
    Place place = button.place();
    place.align = Align::start;
    button.set_place(place);
}
