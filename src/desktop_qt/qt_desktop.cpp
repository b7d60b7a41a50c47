#include "desktop_qt/qt_desktop.h"

#include "desktop_qt/dark_style.h"
#include "desktop_qt/menus.h"
#include "desktop_qt/usual_pointer.h"
#include "desktop_qt/window_icon.h"
#include "toolkit/descriptor_watch.h"
#include "toolkit/timer.h"

#include <QtCore/QLibraryInfo>
#include <QtCore/QSocketNotifier>
#include <QtCore/QTimer>
#include <QtCore/QTranslator>
#include <QtGui/QClipboard>
#include <QtGui/QCursor>
#include <QtWidgets/QApplication>
#include <QtWidgets/QDialog>
#include <QtWidgets/QMenu>

namespace {

// Drops what the user does while the program paints in the middle of an operation. Closing a window stays.
class Input_stop : public QObject {
public:
    Input_stop() { qApp->installEventFilter(this); }

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        switch (event->type()) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::MouseMove:
        case QEvent::Wheel:
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
        case QEvent::Shortcut:
        case QEvent::ShortcutOverride:
        case QEvent::ContextMenu:
        case QEvent::InputMethod:
        case QEvent::TouchBegin:
        case QEvent::TouchUpdate:
        case QEvent::TouchEnd:
        case QEvent::TabletPress:
        case QEvent::TabletRelease:
        case QEvent::DragEnter:
        case QEvent::DragMove:
        case QEvent::Drop: return true;
        default: return false;
        }
    }
};

} // namespace

Qt_desktop::Qt_desktop(Host_functions host) : host_(std::move(host)) {
    // The main form says when the program ends.
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setWindowIcon(window_icon());
    QGuiApplication::setDesktopFileName("project_editor"); // where windows get their icon from that
    Dark_style::use_where_needed();
    QApplication::setPalette(with_readable_disabled_text(QApplication::palette()));
}

// Windows whose form is gone are deleted when Qt comes round to it; this is the last time. Forms may live on,
// undrawn.
Qt_desktop::~Qt_desktop() {
    for (const QPointer<QWidget>& window : windows_)
        delete window;
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

QWidget& Qt_desktop::window_of(TForm& form) {
    if (!form.view()) {
        std::erase_if(windows_, [](const auto& window) { return !window; });
        QWidget* const parent = form.modal() ? holder_of_dialog() : nullptr;
        windows_.emplace_back(&make_view(*this, form, parent).widget());
    }
    return static_cast<View*>(form.view())->widget();
}

void Qt_desktop::show(TForm& form) {
    QWidget& window = window_of(form);
    show_focus(form);
    window.show();
    window.raise();
    window.activateWindow();
}

void Qt_desktop::show_focus(TForm& form) {
    TControl* const focused = form.focused_control();
    if (focused && focused->view())
        focused->view()->changed({Aspect::focus});
}

void Qt_desktop::run_modal(TForm& form) {
    auto& dialog = static_cast<QDialog&>(window_of(form));
    show_focus(form);
    const Usual_pointer usual;
    dialogs_.push_back(&dialog);
    dialog.exec();
    dialogs_.pop_back();
    throw_kept();
}

void Qt_desktop::run(TForm& main_form) {
    main_form_ = &main_form;
    main_form.show();
    if (main_form.visible() && !kept_)
        QApplication::exec();
    main_form_ = nullptr;
    throw_kept();
}

void Qt_desktop::hidden(TForm& form) {
    if (&form == main_form_)
        QCoreApplication::exit();
}

Item_path Qt_desktop::choose(TPopupMenu& menu, int rise) {
    update_items(menu.items);
    QMenu shown;
    fill_menu(shown, menu.items);
    const Usual_pointer usual;
    const QAction* const chosen = shown.exec(QCursor::pos() - QPoint(0, rise));
    throw_kept();
    return path_of(chosen);
}

void Qt_desktop::run_action(const std::function<void()>& action) {
    ++running_actions_;
    try {
        action();
    } catch (...) {
        kept_ = std::current_exception();
        if (dialogs_.empty())
            QCoreApplication::exit();
        else
            dialogs_.back()->hide();
    }
    if (--running_actions_ == 0)
        close_waiting();
}

void Qt_desktop::throw_kept() {
    if (kept_)
        std::rethrow_exception(std::exchange(kept_, nullptr));
}

void Qt_desktop::close(TForm& form) {
    if (holds_input())
        waiting_to_close_.emplace_back(&window_of(form));
    else
        run_action([&] { form.close(); });
}

void Qt_desktop::close_waiting() {
    for (const QPointer<QWidget>& window : std::exchange(waiting_to_close_, {}))
        if (window)
            window->close();
}

bool Qt_desktop::paint_pending() {
    const Input_stop stop;
    QCoreApplication::processEvents();
    return waiting_to_close_.empty();
}

void Qt_desktop::set_busy(bool busy) {
    if (busy)
        QApplication::setOverrideCursor(Qt::WaitCursor);
    else
        QApplication::restoreOverrideCursor();
}

void Qt_desktop::minimise() {
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->isVisible() && qobject_cast<QDialog*>(window))
            window->setWindowState(window->windowState() | Qt::WindowMinimized);
}

void Qt_desktop::restore() {
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->isMinimized())
            window->setWindowState((window->windowState() & ~Qt::WindowMinimized) | Qt::WindowActive);
}

void Qt_desktop::start_timer(TTimer& timer) {
    std::unique_ptr<QTimer>& clock = timers_[&timer];
    if (!clock) {
        clock = std::make_unique<QTimer>();
        QObject::connect(clock.get(), &QTimer::timeout, clock.get(),
                         [this, &timer] { run_action([&] { timer.fire(); }); });
    }
    clock->start(std::max(timer.interval(), 1));
}

void Qt_desktop::stop_timer(TTimer& timer) {
    const auto found = timers_.find(&timer);
    if (found != timers_.end()) {
        // The clock may be the one that is telling the time at this moment.
        found->second->stop();
        found->second.release()->deleteLater();
        timers_.erase(found);
    }
}

void Qt_desktop::start_watch(TDescriptor_watch& watch) {
    auto notifier = std::make_unique<QSocketNotifier>(watch.descriptor(), QSocketNotifier::Read);
    QObject::connect(notifier.get(), &QSocketNotifier::activated, notifier.get(),
                     [this, &watch] { run_action([&] { watch.fire(); }); });
    watches_[&watch] = std::move(notifier);
}

void Qt_desktop::stop_watch(TDescriptor_watch& watch) {
    const auto found = watches_.find(&watch);
    if (found != watches_.end()) {
        // The notifier may be the one that is telling at this moment.
        found->second->setEnabled(false);
        found->second.release()->deleteLater();
        watches_.erase(found);
    }
}

std::string Qt_desktop::clipboard_text() const {
    return from_qt(QGuiApplication::clipboard()->text());
}

void Qt_desktop::set_clipboard_text(const std::string& text) {
    QGuiApplication::clipboard()->setText(to_qt(text));
}

// The application forgets a translator that goes, and tells all widgets.
void Qt_desktop::use_language(const std::string& code) {
    translator_.reset();
    auto translator = std::make_unique<QTranslator>();
    if (code.empty() ||
        !translator->load("qtbase_" + to_qt(code), QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        return;
    translator_ = std::move(translator);
    QCoreApplication::installTranslator(translator_.get());
}

void Qt_desktop::open_web_address(const std::string& address) {
    if (host_.open_web_address)
        host_.open_web_address(address);
}

std::string Qt_desktop::host_path(const std::string& name) const {
    return host_.host_path ? host_.host_path(name) : name;
}

std::string Qt_desktop::program_name(const std::string& path) const {
    return host_.program_name ? host_.program_name(path) : path;
}
