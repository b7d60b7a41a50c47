// Containers that lay out what they hold: a plain panel, and a group with a caption and a frame.
#pragma once

#include "toolkit/control.h"

enum class Layout { column, row, grid };

class TContainer : public TControl {
public:
    Layout layout() const { return layout_; }
    // The columns of a grid; 1 elsewhere.
    int columns() const { return columns_; }
    // How the children are laid out; set before the container is first shown.
    void set_layout(Layout layout, int columns = 1);

protected:
    TContainer(Control_kind kind, std::string name, std::string text, Layout layout, int columns)
        : TControl(kind, std::move(name), std::move(text)) {
        set_layout(layout, columns);
    }

private:
    Layout layout_ = Layout::column;
    int columns_ = 1;
};

class TPanel : public TContainer {
public:
    explicit TPanel(std::string name, Layout layout = Layout::column, int columns = 1)
        : TContainer(Control_kind::panel, std::move(name), {}, layout, columns) {}
};

class TGroupBox : public TContainer {
public:
    TGroupBox(std::string name, std::string text, Layout layout = Layout::column, int columns = 1)
        : TContainer(Control_kind::group_box, std::move(name), std::move(text), layout, columns) {}
};
