// The views of what holds other controls, except forms.
#include "desktop_qt/containers.h"

#include "desktop_qt/views.h"
#include "toolkit/label.h"
#include "toolkit/page_control.h"

#include <QtCore/QEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QBoxLayout>
#include <QtWidgets/QGridLayout>
#include <QtWidgets/QGroupBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QScrollArea>
#include <QtWidgets/QTabBar>
#include <QtWidgets/QTabWidget>

namespace {

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
    const auto& children = container.children();
    const bool asked = std::any_of(children.begin(), children.end(),
                                   [](const TControl* child) { return child->place().stretch > 0; });
    for (TControl* child : children) {
        if (child->kind() == Control_kind::main_menu)
            continue;
        const Place& place = child->place();
        layout.addWidget(&widget_of(context, *child, &widget), place.stretch,
                         alignment_of(place.align, !is_row));
        const int last = layout.count() - 1;
        if (!asked && layout.itemAt(last)->expandingDirections().testFlag(along))
            layout.setStretch(last, 1);
    }
    layout.addItem(is_row ? new QSpacerItem(0, 0, QSizePolicy::Expanding, QSizePolicy::Minimum)
                          : new QSpacerItem(0, 0, QSizePolicy::Minimum, QSizePolicy::Expanding));
}

void fill_grid(View_context& context, TContainer& container, QWidget& widget, QGridLayout& layout) {
    int row = 0;
    int column = 0;
    for (TControl* child : container.children()) {
        if (child->kind() == Control_kind::main_menu)
            continue;
        const Place& place = child->place();
        const int span = std::clamp(place.span, 1, container.columns());
        if (column + span > container.columns()) {
            ++row;
            column = 0;
        }
        layout.addWidget(&widget_of(context, *child, &widget), row, column, 1, span,
                         alignment_of(place.align, true));
        layout.setRowStretch(row, std::max(layout.rowStretch(row), place.stretch));
        column += span;
    }
    layout.addItem(new QSpacerItem(0, 0, QSizePolicy::Minimum, QSizePolicy::Expanding), row + 1, 0);
}

// Whether the control has a use for more height than it needs.
bool has_use_for_height(const TControl& control) {
    switch (control.kind()) {
    case Control_kind::memo:
    case Control_kind::list_box:
    case Control_kind::shell_list:
    case Control_kind::shell_tree:
    case Control_kind::splitter:
    case Control_kind::table:
    case Control_kind::web_view:
    case Control_kind::map_view: return true;
    case Control_kind::page_control: return static_cast<const TPageControl&>(control).tabs() != Tabs::none;
    case Control_kind::panel:
    case Control_kind::group_box: break;
    default: return false;
    }
    const bool is_row = static_cast<const TContainer&>(control).layout() == Layout::row;
    return std::any_of(control.children().begin(), control.children().end(), [&](const TControl* child) {
        return has_use_for_height(*child) || (!is_row && child->place().stretch > 0);
    });
}

void lay_out_inner(View_context& context, TContainer& container, QWidget& widget) {
    lay_out(context, container, widget);
    QSizePolicy policy = widget.sizePolicy();
    policy.setVerticalPolicy(has_use_for_height(container) ? QSizePolicy::Preferred : QSizePolicy::Maximum);
    widget.setSizePolicy(policy);
}

// A label that names the control behind it leads there, and is what that control is called.
void connect_labels(const TContainer& container) {
    const auto& children = container.children();
    for (std::size_t i = 0; i + 1 < children.size(); ++i) {
        if (children[i]->kind() == Control_kind::label &&
            static_cast<const TLabel*>(children[i])->names_next()) {
            QWidget& named = static_cast<View*>(children[i + 1]->view())->widget();
            auto& label = static_cast<QLabel&>(static_cast<View*>(children[i]->view())->widget());
            label.setBuddy(&named);
            named.setAccessibleName(to_qt(children[i]->text()).remove('&'));
        }
    }
}

class Panel_view : public View_of<TContainer, QWidget> {
public:
    Panel_view(View_context& context, TControl& control, QWidget* parent)
        : View_of(context, control, *new QWidget(parent)) {}

protected:
    void show_state() override { lay_out_inner(context(), control(), widget()); }
    void settle() override {}
};

class Group_view : public View_of<TContainer, QGroupBox> {
public:
    Group_view(View_context& context, TControl& control, QWidget* parent)
        : View_of(context, control, *new QGroupBox(parent)) {}

protected:
    void show_state() override {
        widget().setTitle(to_qt(control().text()));
        lay_out_inner(context(), control(), widget());
    }
    void show_change(const Change& change) override {
        if (change.aspect == Aspect::text)
            widget().setTitle(to_qt(control().text()));
        else
            View::show_change(change);
    }
    void settle() override {}
};

// Qt's scroll area asks for the size that its contents had at first; this one follows them, as a translation
// makes texts longer.
class Sheet : public QScrollArea {
public:
    explicit Sheet(QWidget* parent) : QScrollArea(parent) {}

    QSize sizeHint() const override {
        const int line = fontMetrics().height();
        return widget()->sizeHint().boundedTo({36 * line, 24 * line});
    }
    // Beside a list, which can be of any width, a page of buttons is not cut off.
    QSize minimumSizeHint() const override {
        const int longest_buttons = 28 * fontMetrics().height();
        QSize least = QScrollArea::minimumSizeHint();
        least.setWidth(
            std::max(least.width(), std::min(widget()->minimumSizeHint().width(), longest_buttons)));
        return least;
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (watched == widget() && event->type() == QEvent::LayoutRequest) {
            updateGeometry();
        }
        return QScrollArea::eventFilter(watched, event);
    }
};

// A page scrolls where the window is too small for it. Whether it is visible, and its caption, are its tab's.
class Sheet_view : public View_of<TTabSheet, Sheet> {
public:
    Sheet_view(View_context& context, TControl& control, QWidget* parent)
        : View_of(context, control, *new Sheet(parent)) {
        widget().setFrameShape(QFrame::NoFrame);
        widget().setWidgetResizable(true);
        widget().setFocusPolicy(Qt::NoFocus);
        widget().setWidget(new QWidget);
        widget().viewport()->setAutoFillBackground(false);
        widget().widget()->setAutoFillBackground(false);
    }

protected:
    void show_state() override { lay_out(context(), control(), *widget().widget()); }

    void show_change(const Change& change) override {
        switch (change.aspect) {
        case Aspect::children: show_state(); break;
        case Aspect::text:
            show_tab(change);
            for (const QWidget* inner : widget().findChildren<QWidget*>())
                if (View* const view = of(*inner))
                    view->name_after_page();
            break;
        case Aspect::visible:
        case Aspect::enabled: show_tab(change); break;
        default: View::show_change(change); break;
        }
    }
    void settle() override {}

    // Qt hides a page and moves the focus on to whatever comes next before it tells that another page is in
    // front. The tabs get it first: so what had it is left, and nothing that the user did not mean is
    // entered.
    bool eventFilter(QObject* watched, QEvent* event) override {
        const QWidget* const focus = QApplication::focusWidget();
        if (watched == &widget() && event->type() == QEvent::Hide && focus && widget().isAncestorOf(focus))
            focus_tabs();
        return View::eventFilter(watched, event);
    }

private:
    void focus_tabs();
    void show_tab(const Change& change);
};

class Page_control_view : public View_of<TPageControl, QTabWidget> {
public:
    Page_control_view(View_context& context, TControl& control, QWidget* parent)
        : View_of(context, control, *new QTabWidget(parent)) {
        widget().setTabPosition(this->control().tabs() == Tabs::below ? QTabWidget::South
                                                                      : QTabWidget::North);
        widget().setDocumentMode(false);
        widget().tabBar()->setUsesScrollButtons(true);
        watch(*widget().tabBar());
        connect(&widget(), &QTabWidget::currentChanged, this, [this](int index) {
            act([&] {
                if (index >= 0 && index < static_cast<int>(this->control().children().size()))
                    this->control().select_page(page(index));
            });
            enter_what_has_focus(widget());
        });
    }

    void show_tabs() {
        const int count = static_cast<int>(control().children().size());
        for (int index = 0; index < count; ++index) {
            const TTabSheet& sheet = page(index);
            widget().setTabText(index, to_qt(sheet.text()));
            widget().setTabToolTip(index, to_qt(sheet.hint()));
            widget().setTabEnabled(index, sheet.enabled());
            widget().setTabVisible(index, sheet.visible());
        }
    }

protected:
    void show_state() override {
        while (widget().count() > 0)
            widget().removeTab(0);
        for (TControl* child : control().children())
            widget().addTab(&widget_of(context(), *child, &widget()), QString());
        show_tabs();
        show_page();
        if (control().tabs() == Tabs::below)
            put_tabs_last();
    }

    void show_change(const Change& change) override {
        if (change.aspect == Aspect::page)
            show_page();
        else if (change.aspect == Aspect::focus)
            widget().tabBar()->setFocus();
        else
            View::show_change(change);
    }
    void settle() override { show_page(); }

private:
    TTabSheet& page(int index) const {
        return static_cast<TTabSheet&>(*control().children()[static_cast<std::size_t>(index)]);
    }
    // Tab leads to what stands above the tabs before it leads to them. The widget itself would hand the focus
    // on to them at once.
    void put_tabs_last() {
        QWidget* const tabs = widget().tabBar();
        widget().setFocusProxy(nullptr);
        widget().setFocusPolicy(Qt::NoFocus);
        QWidget* last = tabs;
        for (QWidget* at = tabs->nextInFocusChain(); at != &widget(); at = at->nextInFocusChain())
            if (widget().isAncestorOf(at) && at->focusPolicy() != Qt::NoFocus)
                last = at;
        QWidget::setTabOrder(last, tabs);
    }
    void show_page() {
        if (control().active_index() >= 0)
            widget().setCurrentIndex(control().active_index());
    }
};

// Pages without tabs: groups below one another.
class Groups_view : public View_of<TPageControl, QWidget> {
public:
    Groups_view(View_context& context, TControl& control, QWidget* parent)
        : View_of(context, control, *new QWidget(parent)) {}

protected:
    void show_state() override {
        delete widget().layout();
        auto& layout = *new QVBoxLayout(&widget());
        layout.setContentsMargins(0, 0, 0, 0);
        for (TControl* page : control().children()) {
            QWidget& group = widget_of(context(), *page, &widget());
            group.setVisible(page->visible());
            layout.addWidget(&group);
        }
        layout.addStretch(1);
    }
    // Each group shows itself whether it is there.
    void show_change(const Change& change) override {
        if (change.aspect != Aspect::page && change.aspect != Aspect::state)
            View::show_change(change);
    }
    void settle() override {}
};

void Sheet_view::focus_tabs() {
    const Control_view* const holder = observed() ? control().parent()->view() : nullptr;
    if (!holder)
        return;
    const auto& tabs = static_cast<QTabWidget&>(static_cast<const View*>(holder)->widget());
    if (tabs.isVisible())
        tabs.tabBar()->setFocus();
}

void Sheet_view::show_tab(const Change& change) {
    if (change.aspect == Aspect::enabled)
        widget().setEnabled(control().enabled());
    if (control().parent() && control().parent()->view())
        control().parent()->view()->changed({Aspect::state});
}

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
    if (container.kind() == Control_kind::panel)
        widget.layout()->setContentsMargins(0, 0, 0, 0);
    for (TControl* child : container.children())
        if (child->kind() == Control_kind::main_menu)
            widget.layout()->setMenuBar(&widget_of(context, *child, &widget));
    connect_labels(container);
}

View& make_panel_view(View_context& context, TControl& control, QWidget* parent) {
    return *new Panel_view(context, control, parent);
}

View& make_group_view(View_context& context, TControl& control, QWidget* parent) {
    return *new Group_view(context, control, parent);
}

View& make_sheet_view(View_context& context, TControl& control, QWidget* parent) {
    const bool has_tab = static_cast<TPageControl*>(control.parent())->tabs() != Tabs::none;
    return has_tab ? static_cast<View&>(*new Sheet_view(context, control, parent))
                   : *new Group_view(context, control, parent);
}

View& make_page_control_view(View_context& context, TControl& control, QWidget* parent) {
    return static_cast<TPageControl&>(control).tabs() == Tabs::none
               ? static_cast<View&>(*new Groups_view(context, control, parent))
               : *new Page_control_view(context, control, parent);
}
