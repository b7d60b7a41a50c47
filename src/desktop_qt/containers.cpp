#include "desktop_qt/containers.h"

#include "desktop_qt/views.h"

#include <QtWidgets/QBoxLayout>
#include <QtWidgets/QGridLayout>
#include <QtWidgets/QWidget>

namespace {

QWidget& widget_of(View_context& context, TControl& control, QWidget& parent) {
    if (!control.view()) {
        make_view(context, control, &parent);
    }
    return static_cast<View*>(control.view())->widget();
}

Qt::Alignment alignment_of(Align align, bool across) {
    switch (align) {
    case Align::start: return across ? Qt::AlignLeft : Qt::AlignTop;
    case Align::middle: return across ? Qt::AlignHCenter : Qt::AlignVCenter;
    case Align::end: return across ? Qt::AlignRight : Qt::AlignBottom;
    default: return {};
    }
}

// Where no child asks for the room to spare, those get it that can use it, or else the end of the container.
void fill_box(View_context& context, TContainer& container, QWidget& widget, QBoxLayout& layout) {
    const bool is_row = container.layout() == Layout::row;
    const Qt::Orientation along = is_row ? Qt::Horizontal : Qt::Vertical;
    bool asked = false;
    for (const TControl* child : container.children()) {
        asked = asked || child->place().stretch > 0;
    }
    for (TControl* child : container.children()) {
        const Place& place = child->place();
        layout.addWidget(&widget_of(context, *child, widget), place.stretch,
                         alignment_of(place.align, !is_row));
        const int last = layout.count() - 1;
        if (!asked && layout.itemAt(last)->expandingDirections().testFlag(along)) {
            layout.setStretch(last, 1);
        }
    }
    layout.addItem(is_row ? new QSpacerItem(0, 0, QSizePolicy::Expanding, QSizePolicy::Minimum)
                          : new QSpacerItem(0, 0, QSizePolicy::Minimum, QSizePolicy::Expanding));
}

void fill_grid(View_context& context, TContainer& container, QWidget& widget, QGridLayout& layout) {
    int row = 0;
    int column = 0;
    for (TControl* child : container.children()) {
        const Place& place = child->place();
        const int span = std::clamp(place.span, 1, container.columns());
        if (column + span > container.columns()) {
            ++row;
            column = 0;
        }
        layout.addWidget(&widget_of(context, *child, widget), row, column, 1, span,
                         alignment_of(place.align, true));
        layout.setRowStretch(row, std::max(layout.rowStretch(row), place.stretch));
        column += span;
    }
    layout.addItem(new QSpacerItem(0, 0, QSizePolicy::Minimum, QSizePolicy::Expanding), row + 1, 0);
}

class Panel_view : public View_of<TContainer, QWidget> {
public:
    Panel_view(View_context& context, TControl& control, QWidget* parent)
        : View_of(context, control, *new QWidget(parent)) {}

protected:
    void show_state() override { lay_out(context(), control(), widget()); }
};

} // namespace

void lay_out(View_context& context, TContainer& container, QWidget& widget) {
    delete widget.layout();
    if (container.layout() == Layout::grid) {
        auto& layout = *new QGridLayout(&widget);
        fill_grid(context, container, widget, layout);
    } else {
        const bool is_row = container.layout() == Layout::row;
        auto& layout = *new QBoxLayout(is_row ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom, &widget);
        fill_box(context, container, widget, layout);
    }
    if (container.kind() == Control_kind::panel) {
        widget.layout()->setContentsMargins(0, 0, 0, 0);
    }
}

View& make_panel_view(View_context& context, TControl& control, QWidget* parent) {
    return *new Panel_view(context, control, parent);
}
