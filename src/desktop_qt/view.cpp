#include "desktop_qt/view.h"

#include "desktop_qt/picture_painter.h"

#include <QtCore/QMimeData>
#include <QtCore/QUrl>
#include <QtGui/QDropEvent>
#include <QtGui/QKeyEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QAbstractScrollArea>
#include <QtWidgets/QApplication>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QWidget>

#include <algorithm>

namespace {

int views_alive = 0;

constexpr const char* watched_by = "watched by";

Key_code code_of(int key) {
    switch (key) {
    case Qt::Key_Backspace: return Key_code::backspace;
    case Qt::Key_Tab:
    case Qt::Key_Backtab: return Key_code::tab;
    case Qt::Key_Return:
    case Qt::Key_Enter: return Key_code::enter;
    case Qt::Key_Escape: return Key_code::escape;
    case Qt::Key_Space: return Key_code::space;
    case Qt::Key_End: return Key_code::end;
    case Qt::Key_Home: return Key_code::home;
    case Qt::Key_Left: return Key_code::left;
    case Qt::Key_Up: return Key_code::up;
    case Qt::Key_Right: return Key_code::right;
    case Qt::Key_Down: return Key_code::down;
    case Qt::Key_Delete: return Key_code::del;
    case Qt::Key_Insert: return Key_code::insert;
    case Qt::Key_PageUp: return Key_code::page_up;
    case Qt::Key_PageDown: return Key_code::page_down;
    case Qt::Key_Menu: return Key_code::menu;
    default: break;
    }
    const int function_key = key - Qt::Key_F1;
    return function_key >= 0 && function_key < 12
               ? static_cast<Key_code>(static_cast<int>(Key_code::f1) + function_key)
               : Key_code::character;
}

bool has_one_line(Control_kind kind) {
    return kind == Control_kind::edit || kind == Control_kind::combo_box || kind == Control_kind::button ||
           kind == Control_kind::speed_button;
}

bool fills_page(Control_kind kind) {
    return kind == Control_kind::table || kind == Control_kind::list_box || kind == Control_kind::memo ||
           kind == Control_kind::shell_list || kind == Control_kind::shell_tree ||
           kind == Control_kind::map_view;
}

} // namespace

QColor to_qt(Colour colour) {
    return QColor(colour & 0xFF, colour >> 8 & 0xFF, colour >> 16 & 0xFF);
}

QColor readable_on(const QColor& background) {
    return contrast(background, Qt::black) > contrast(background, Qt::white) ? Qt::black : Qt::white;
}

QString to_qt(const std::string& text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QStringList to_qt(const std::vector<std::string>& texts) {
    QStringList list;
    for (const std::string& text : texts)
        list.append(to_qt(text));
    return list;
}

std::string from_qt(const QString& text) {
    return text.toStdString();
}

void paint_focus(QAbstractScrollArea& widget) {
    if (!widget.hasFocus())
        return;
    QPainter painter(widget.viewport());
    painter.setPen(QPen(widget.palette().color(QPalette::Highlight), 2));
    painter.drawRect(widget.viewport()->rect().adjusted(1, 1, -1, -1));
}

View::View(View_context& context, TControl& control, QWidget& widget)
    : QObject(&widget), Control_view(control), context_(context), widget_(widget) {
    ++views_alive;
    widget.setObjectName(to_qt(control.name()));
    watch(widget);
    if (auto* const area = qobject_cast<QAbstractScrollArea*>(&widget))
        watch(*area->viewport());
}

View* View::of(const QWidget& widget) {
    if (auto* const watching = static_cast<View*>(widget.property(watched_by).value<void*>()))
        return watching;
    for (QObject* child : widget.children())
        if (auto* const view = dynamic_cast<View*>(child))
            return view;
    return nullptr;
}

View::~View() {
    --views_alive;
}

int View::alive() {
    return views_alive;
}

void View::control_gone(bool with_holder) {
    let_go();
    widget_.disconnect(this);
    if (!with_holder) {
        widget_.hide();
        // The widget may be in the middle of telling about what the user did.
        widget_.deleteLater();
    }
}

void View::show_all() {
    while_showing([this] {
        show_place();
        name_after_page();
        if (!observed()->hint().empty())
            show_hint();
        if (!observed()->enabled())
            widget_.setEnabled(false);
        if (observed()->colour() != desktop_colour)
            show_colour();
        show_state();
    });
    // A window is shown by the desktop, a page by its tab, the rest with what holds it.
    const bool shows_itself =
        observed()->kind() != Control_kind::form && observed()->kind() != Control_kind::tab_sheet;
    const bool holder_is_up = widget_.parentWidget() && widget_.parentWidget()->isVisible();
    if (shows_itself && (holder_is_up || !observed()->visible()))
        widget_.setVisible(observed()->visible());
}

void View::changed(const Change& change) {
    while_showing([&] { show_change(change); });
}

void View::show_change(const Change& change) {
    switch (change.aspect) {
    case Aspect::hint: show_hint(); break;
    case Aspect::colour: show_colour(); break;
    case Aspect::visible: widget_.setVisible(observed()->visible()); break;
    case Aspect::enabled: widget_.setEnabled(observed()->enabled()); break;
    case Aspect::place: show_place(); break;
    case Aspect::focus:
        if (!widget_.hasFocus() && !widget_.isAncestorOf(QApplication::focusWidget()))
            widget_.setFocus();
        break;
    default: show_state(); break;
    }
}

// As rich text a long hint is broken into lines.
void View::show_hint() {
    const QString hint = to_qt(observed()->hint());
    widget_.setToolTip(hint.isEmpty() ? hint : "<qt>" + hint.toHtmlEscaped() + "</qt>");
    widget_.setAccessibleDescription(hint);
    // "X" or "..." says nothing without the picture around it, "OK" and "New" do.
    const QString text = to_qt(observed()->text()).remove('&');
    const bool is_sign =
        observed()->kind() == Control_kind::button &&
        std::count_if(text.begin(), text.end(), [](QChar c) { return c.isLetterOrNumber(); }) < 2;
    // An edit that no label or prompt names is called by what it says of itself.
    const bool is_nameless =
        observed()->kind() == Control_kind::edit && widget_.accessibleName() == hint_name_;
    if (is_nameless)
        hint_name_ = hint;
    if (is_sign || is_nameless)
        widget_.setAccessibleName(hint);
}

void View::name_after_page() {
    if (!observed() || !fills_page(observed()->kind()) || widget_.accessibleName() != page_name_)
        return;
    const TControl* page = observed()->parent();
    while (page && page->kind() != Control_kind::tab_sheet && page->kind() != Control_kind::form)
        page = page->parent();
    page_name_ = page ? to_qt(page->text()).remove('&') : QString();
    widget_.setAccessibleName(page_name_);
}

// The line of a choice that can be typed into is told beside the choice: it is called as the label says, or
// the check box that makes the choice count.
void View::name_line_of_choice() {
    const auto* const box = qobject_cast<QComboBox*>(&widget_);
    if (!observed() || !box || !box->lineEdit())
        return;
    const auto& beside = observed()->parent()->children();
    const auto own = std::find(beside.begin(), beside.end(), observed());
    const bool is_checked = own != beside.begin() && own[-1]->kind() == Control_kind::check_box;
    box->lineEdit()->setAccessibleName(is_checked ? to_qt(own[-1]->text()).remove('&')
                                                  : box->accessibleName());
}

void View::show_place() {
    const Place& place = observed()->place();
    const QFontMetrics metrics = widget_.fontMetrics();
    if (place.width > 0) {
        widget_.setMinimumWidth((place.width + 2) * metrics.averageCharWidth());
        const bool is_line = has_one_line(observed()->kind());
        widget_.setMaximumWidth(is_line && place.stretch == 0 ? widget_.minimumWidth() : QWIDGETSIZE_MAX);
    }
    if (place.height > 0)
        widget_.setMinimumHeight((place.height + 1) * metrics.height());
}

void View::show_colour() {
    if (observed()->colour() == desktop_colour) {
        widget_.setPalette(QPalette());
        widget_.setAutoFillBackground(false);
        return;
    }
    const QColor background = to_qt(observed()->colour());
    QPalette palette;
    for (const auto role : {QPalette::Window, QPalette::Base, QPalette::Button})
        palette.setColor(role, background);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(role, readable_on(background));
    widget_.setPalette(palette);
    widget_.setAutoFillBackground(true);
}

void View::watch(QWidget& inner) {
    inner.installEventFilter(this);
    inner.setAcceptDrops(true);
    if (&inner != &widget_)
        inner.setProperty(watched_by, QVariant::fromValue<void*>(this));
}

// A key that an inner widget leaves comes by once more, on its way outward.
bool View::has_seen_key(const QObject* watched) const {
    const QWidget* const focus = QApplication::focusWidget();
    return watched == &widget_ && focus && focus->property(watched_by).value<void*>() == this;
}

bool View::eventFilter(QObject* watched, QEvent* event) {
    auto* const area = qobject_cast<QAbstractScrollArea*>(&widget_);
    if (area && (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut))
        area->viewport()->update();
    switch (event->type()) {
    case QEvent::FocusIn: enter(); break;
    case QEvent::KeyPress: return !has_seen_key(watched) && offer(static_cast<QKeyEvent&>(*event));
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop: return take_files(*event);
    default: break;
    }
    return QObject::eventFilter(watched, event);
}

Key to_key(const QKeyEvent& event) {
    Key key{code_of(event.key()), from_qt(event.text())};
    key.shift = event.modifiers().testFlag(Qt::ShiftModifier);
    key.control = event.modifiers().testFlag(Qt::ControlModifier);
    key.alt = event.modifiers().testFlag(Qt::AltModifier);
    // With these the text is a control character or nothing.
    const bool is_letter = event.key() > Qt::Key_Space && event.key() <= Qt::Key_AsciiTilde;
    if (key.code == Key_code::character && (key.control || key.alt) && is_letter)
        key.text = static_cast<char>(event.key());
    return key;
}

bool View::offer(const QKeyEvent& event) {
    const Key key = to_key(event);
    bool used = false;
    act([&] { used = observed()->offer_key(key); });
    return used;
}

void enter_what_has_focus(const QWidget& holder) {
    for (const QWidget* at = QApplication::focusWidget(); at && holder.isAncestorOf(at);
         at = at->parentWidget())
        if (View* const view = View::of(*at)) {
            view->enter();
            return;
        }
}

bool View::take_files(QEvent& event) {
    auto& drop = static_cast<QDropEvent&>(event);
    if (!observed() || !observed()->accepts_files() || !drop.mimeData()->hasUrls())
        return false;
    drop.acceptProposedAction();
    if (event.type() == QEvent::Drop) {
        std::vector<std::string> names;
        for (const QUrl& url : drop.mimeData()->urls())
            if (url.isLocalFile())
                names.push_back(context_.program_name(from_qt(url.toLocalFile())));
        act([&] { observed()->drop_files(names); });
    }
    return true;
}
