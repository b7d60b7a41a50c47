#include "desktop_qt/qt_desktop.h"

#include <QtCore/QEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QDialog>

// Windows whose form is gone are deleted when Qt comes round to it; this is the last time.
Qt_desktop::~Qt_desktop() {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void Qt_desktop::show(TForm& form) {
    if (!form.view()) {
        make_view(*this, form, nullptr);
    }
    QWidget& window = static_cast<View*>(form.view())->widget();
    window.show();
    window.raise();
    window.activateWindow();
}

void Qt_desktop::run_modal(TForm& form) {
    if (!form.view()) {
        make_view(*this, form, QApplication::activeWindow());
    }
    static_cast<QDialog&>(static_cast<View*>(form.view())->widget()).exec();
    throw_kept();
}

void Qt_desktop::keep_exception(std::exception_ptr exception) {
    kept_ = std::move(exception);
}

void Qt_desktop::throw_kept() {
    if (kept_) {
        std::rethrow_exception(std::exchange(kept_, nullptr));
    }
}
