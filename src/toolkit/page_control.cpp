#include "toolkit/page_control.h"

#include "toolkit/form.h"

#include <algorithm>

TPageControl::TPageControl(std::string name, Tabs tabs)
    : TControl(Control_kind::page_control, std::move(name)), tabs_(tabs) {
    set_takes_focus(tabs != Tabs::none);
}

int TPageControl::active_index() const {
    const auto found = std::find(children().begin(), children().end(), active_page_);
    return found == children().end() ? -1 : static_cast<int>(found - children().begin());
}

bool TPageControl::can_show(const TControl& page) const {
    return page.kind() == Control_kind::tab_sheet && page.parent() == this && page.visible();
}

// What has the focus on the page that goes is left while that is still in front.
void TPageControl::activate(TTabSheet* page) {
    if (page == active_page_)
        return;
    TForm* const holder = form();
    if (holder && active_page_ && tabs_ != Tabs::none)
        holder->leave_focus_in(*active_page_);
    // A handler may have hidden the page that comes, or brought it to the front.
    TTabSheet* const left = active_page_;
    if ((page && !can_show(*page)) || !assign(active_page_, page, Aspect::page))
        return;
    give_up_lost_focus();
    // A page that goes because it was hidden, or is on its way out, is not left by the user.
    if (left && can_show(*left) && left->on_hide)
        left->on_hide();
    if (page && page->on_show)
        page->on_show();
}

void TPageControl::set_active_page(TTabSheet& page) {
    if (can_show(page))
        activate(&page);
}

bool TPageControl::select_page(TTabSheet& page) {
    if (tabs_ == Tabs::none || !begin_action() || !can_show(page) || !page.enabled())
        return false;
    if (&page != active_page_) {
        activate(&page);
        if (on_change)
            on_change();
    }
    return true;
}

bool TPageControl::has_in_front(const TControl& child) const {
    return tabs_ == Tabs::none ? can_show(child) : &child == active_page_;
}

void TPageControl::bring_child_to_front(TControl& child) {
    if (&child != active_page_ && can_show(child))
        select_page(static_cast<TTabSheet&>(child));
}

void TPageControl::child_visibility_changed(TControl& child) {
    if (!active_page_ && can_show(child))
        activate(static_cast<TTabSheet*>(&child));
    else if (&child == active_page_ && !child.visible())
        replace_lost_page(static_cast<std::size_t>(active_index()));
}

void TPageControl::child_leaves(TControl& child) {
    if (&child == active_page_)
        replace_lost_page(0);
}

// The next page that can be shown comes to the front, or else the nearest before.
void TPageControl::replace_lost_page(std::size_t index) {
    const auto can = [this](TControl* page) { return can_show(*page); };
    const auto lost = children().begin() + static_cast<std::ptrdiff_t>(index);
    auto next = std::find_if(lost, children().end(), can);
    if (next == children().end()) {
        const auto before = std::find_if(std::make_reverse_iterator(lost), children().rend(), can);
        next = before == children().rend() ? next : before.base() - 1;
    }
    activate(next == children().end() ? nullptr : static_cast<TTabSheet*>(*next));
}

bool TPageControl::press(const Key& key) {
    if (tabs_ == Tabs::none || (key.code != Key_code::left && key.code != Key_code::right))
        return false;
    const int step = key.code == Key_code::left ? -1 : 1;
    const int count = static_cast<int>(children().size());
    for (int index = active_index() + step; index >= 0 && index < count; index += step) {
        TControl& page = *children()[static_cast<std::size_t>(index)];
        if (can_show(page))
            return select_page(static_cast<TTabSheet&>(page));
    }
    return false;
}
