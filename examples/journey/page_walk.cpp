#include "page_walk.h"

#include "toolkit/page_control.h"

namespace {

bool has_tabs(const TControl& control) {
    return control.kind() == Control_kind::page_control &&
           static_cast<const TPageControl&>(control).tabs() != Tabs::none;
}

// Whether another page control stands between the two.
bool page_above(const TControl& control, const TControl& within) {
    for (const TControl* above = control.parent(); above != nullptr && above != &within;
         above = above->parent())
        if (has_tabs(*above))
            return true;
    return false;
}

void restore_first(TPageControl& pages) {
    for (TControl* page : pages.children())
        if (page->visible()) {
            pages.select_page(static_cast<TTabSheet&>(*page));
            return;
        }
}

void visit_below(TControl& within, const std::string& captions,
                 const std::function<void(const std::string&)>& visit) {
    bool any = false;
    within.walk([&](TControl& inner) {
        if (!has_tabs(inner) || !inner.visible() || page_above(inner, within))
            return true;
        any = true;
        for (TControl* page : inner.children()) {
            if (!page->visible() || !page->enabled())
                continue;
            static_cast<TPageControl&>(inner).select_page(static_cast<TTabSheet&>(*page));
            visit_below(*page, captions + (captions.empty() ? "" : ", ") + page->native_text(), visit);
        }
        restore_first(static_cast<TPageControl&>(inner));
        return true;
    });
    if (!any)
        visit(captions);
}

} // namespace

void visit_pages(TControl& within, const std::function<void(const std::string& captions)>& visit) {
    visit_below(within, "", visit);
}
