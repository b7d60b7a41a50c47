// Lists that show the items of a container.
#pragma once

#include "editing/auto_entry.h"
#include "foundation/container.h"
#include "foundation/ustring.h"
#include "toolkit/combo_box.h"
#include "toolkit/list_box.h"

// A text, with the items to choose it from. The value follows at once.
class TAutoContainerComboBox : public TAutoEntry<TComboBox> {
public:
    explicit TAutoContainerComboBox(std::string name);

    // Null shows no text, or no items.
    void bind_to(TESK::Ustring* text, TESK::Container* items, const char* help_URL);
    void Update() override;
    void update_value();

protected:
    void do_change() override;
    void leave() override;
    std::string refusal(const std::string& refused) const override { return untypable(refused); }

private:
    TESK::Ustring* value = nullptr;
    TESK::Container* container_ = nullptr;
};

class TAutoContainerListBox : public TAutoChoice<TListBox> {
public:
    explicit TAutoContainerListBox(std::string name, bool multi_select = true)
        : TAutoChoice<TListBox>(std::move(name), multi_select) {}

    // Null shows nothing.
    void bind_to(TESK::Container* items, const char* help_URL);
    void Update() override;
    bool is_bound() const override { return container_ != nullptr; }

    // Deletes the items of the selected lines.
    void delete_selected();
    // Moves the item of the first selected line to an end of the container; only one moves.
    void move_selected_to(bool top);

private:
    TESK::Container* container_ = nullptr;
};

// The marks of the lines are the items' own.
class TAutoContainerCheckListBox : public TAutoChoice<TCheckListBox> {
public:
    using TAutoChoice<TCheckListBox>::TAutoChoice;

    // Null shows nothing.
    void bind_to(TESK::Container* items, const char* help_URL);
    void Update() override;
    bool is_bound() const override { return container_ != nullptr; }
    // Writes each line's marks into its item.
    void update_value() override;

protected:
    void do_check(int index) override;
    void do_click() override;

private:
    TESK::Container* container_ = nullptr;
};
