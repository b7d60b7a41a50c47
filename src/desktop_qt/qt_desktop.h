// The desktop drawn with Qt Widgets. One exists while the program runs, made after QApplication.
#pragma once

#include "desktop_qt/view.h"
#include "toolkit/desktop.h"

#include <QtCore/QPointer>

#include <exception>
#include <map>
#include <memory>

class QDialog;
class QTranslator;
class QSocketNotifier;
class QTimer;

// How the drawing layer reaches the rest of the host. A name passes unchanged, and an address is not opened,
// where a function is missing.
struct Host_functions {
    std::function<std::string(const std::string& name)> host_path;
    std::function<std::string(const std::string& path)> program_name;
    std::function<void(const std::string& address)> open_web_address;
};

// The window that a dialog belongs to; null for none. The active one may be a dialog that is hidden already,
// and goes, with what belongs to it, as soon as Qt comes round to it.
QWidget* holder_of_dialog();

class Qt_desktop : public Desktop, private View_context {
public:
    explicit Qt_desktop(Host_functions host = {});
    ~Qt_desktop() override;

    void show(TForm& form) override;
    void run_modal(TForm& form) override;
    void run(TForm& main_form) override;
    Modal_result message_box(const Message& message) override;
    bool run_file_dialog(TFileDialog& dialog) override;
    Item_path choose(TPopupMenu& menu, int rise) override;
    void set_busy(bool busy) override;
    void minimise() override;
    void stay_open() override { waiting_to_close_.clear(); }
    void restore() override;
    void start_timer(TTimer& timer) override;
    void stop_timer(TTimer& timer) override;
    void start_watch(TDescriptor_watch& watch) override;
    void stop_watch(TDescriptor_watch& watch) override;
    std::string clipboard_text() const override;
    void set_clipboard_text(const std::string& text) override;
    void use_language(const std::string& code) override;
    void open_web_address(const std::string& address) override;

protected:
    bool paint_pending() override;

private:
    std::string host_path(const std::string& name) const override;
    std::string program_name(const std::string& path) const override;
    void run_action(const std::function<void()>& action) override;
    void close(TForm& form) override;
    void hidden(TForm& form) override;

    QWidget& window_of(TForm& form);
    void show_focus(TForm& form);
    void close_waiting();
    void throw_kept();

    Host_functions host_;
    std::unique_ptr<QTranslator> translator_; // of Qt's own texts; null for those in the program
    std::exception_ptr kept_;
    int running_actions_ = 0;
    std::vector<QPointer<QWidget>> windows_;
    std::vector<QPointer<QWidget>> waiting_to_close_;
    TForm* main_form_ = nullptr;
    std::vector<QDialog*> dialogs_;
    std::map<TTimer*, std::unique_ptr<QTimer>> timers_;
    std::map<TDescriptor_watch*, std::unique_ptr<QSocketNotifier>> watches_;
};
