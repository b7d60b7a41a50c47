// Pages behind one another, each with a tab; a page can be hidden, and then has no tab. Pages that hold
// little can also stand beside or below one another, each with its text above it.
#pragma once

#include "toolkit/panel.h"

class TTabSheet : public TContainer {
public:
    TTabSheet(std::string name, std::string text, Layout layout = Layout::column, int columns = 1)
        : TContainer(Control_kind::tab_sheet, std::move(name), std::move(text), layout, columns) {}

    std::function<void()> on_show; // the page came to the front, whoever brought it there
    std::function<void()> on_hide; // another page came to the front instead, and what had the focus is left
};

enum class Tabs { above, below, none };

// Its children are its pages.
class TPageControl : public TControl {
public:
    // Without tabs all pages that are visible are in front.
    explicit TPageControl(std::string name, Tabs tabs = Tabs::above);

    Tabs tabs() const { return tabs_; }
    // The page in front: null when there is none, or none that is visible.
    TTabSheet* active_page() const { return active_page_; }
    // Its index among all pages, hidden ones too, or -1.
    int active_index() const;
    // Brings a page to the front. A hidden page, or one from elsewhere, stays where it is.
    void set_active_page(TTabSheet& page);

    // What a user does: chooses a tab. Without tabs there is nothing to choose.
    bool select_page(TTabSheet& page);

    std::function<void()> on_change; // the user chose another page

protected:
    bool has_in_front(const TControl& child) const override;
    void bring_child_to_front(TControl& child) override;
    void child_visibility_changed(TControl& child) override;
    void child_leaves(TControl& child) override;
    bool press(const Key& key) override;

private:
    bool can_show(const TControl& page) const;
    void replace_lost_page(std::size_t index);
    void activate(TTabSheet* page);

    TTabSheet* active_page_ = nullptr;
    Tabs tabs_;
};
