// Two controls beside or above one another, with a bar between them that the user moves.
#pragma once

#include "toolkit/panel.h"

class TSplitter : public TContainer {
public:
    // In a row the children stand beside one another, in a column above one another. The text is what the
    // bar is called, for who points at it or cannot see it.
    explicit TSplitter(std::string name, Layout layout = Layout::row, std::string text = {})
        : TContainer(Control_kind::splitter, std::move(name), std::move(text), layout, 1) {}

    // The share of the first child in thousandths, which the owner may remember; -1 as long as nobody set it,
    // which divides by the places of the children.
    int position() const { return position_; }
    void set_position(int position);

    // What a user does.
    bool move(int position);

    std::function<void()> on_move;

private:
    int position_ = -1;
};
