// A desktop without a display, for tests: it answers from a script, writes down what it was asked, and
// reports a fault when it meets something that the script does not expect, instead of waiting for a user.
#pragma once

#include "toolkit/desktop.h"

#include <deque>

// A test makes one like this:
//     Headless_desktop headless([](const std::string& fault) { ADD_FAILURE() << fault; });
class Headless_desktop : public Desktop {
public:
    // Is the desktop in use from now on. `on_fault` is told of each fault in plain words.
    explicit Headless_desktop(std::function<void(const std::string& fault)> on_fault);
    // What the script still expects is a fault. The desktop that was in use before is again.
    ~Headless_desktop() override;

    // The script: what must be met next, in this order.
    // A message of exactly this title and text.
    void expect_message(const std::string& title, const std::string& text,
                        Modal_result answer = Modal_result::ok);
    // A file dialog of this title; choosing no file cancels it.
    void expect_file_dialog(const std::string& title, std::vector<std::string> chosen);
    // A form of this name run as a dialog; `user` works on it and must end it.
    void expect_modal(const std::string& form_name, std::function<void(TForm&)> user);
    // A menu that has this item ("Sub-menu|Item" below another), which is chosen; empty leaves the menu.
    void expect_menu(std::string item);
    bool script_done() const { return script_.empty(); }

    // What the user does while the main form runs; afterwards the form is closed, if it is not yet.
    std::function<void(TForm&)> on_run;
    // Whether the user closes the window during the next long operation.
    bool closing = false;
    // Called each time that messages are processed; what it does to a control has no effect, as a user's
    // doings have none then.
    std::function<void()> on_process_messages;

    // Lets time go by: the timers that are due meanwhile fire, in the order of their times.
    void advance(int milliseconds);

    // The descriptor has something to read: what watches it is told.
    void descriptor_ready(int descriptor);
    // The same for all that are watched.
    void descriptors_ready();

    // What was asked.
    const std::vector<Message>& messages() const { return messages_; }
    const std::vector<std::string>& web_addresses() const { return web_addresses_; }
    const std::string& language() const { return language_; }
    const TFileDialog* last_file_dialog() const { return dialogs_.empty() ? nullptr : &dialogs_.back(); }
    int messages_processed() const { return messages_processed_; }
    int busy() const { return busy_; }
    bool minimised() const { return minimised_; }
    int minimised_count() const { return minimised_count_; }

    void show(TForm& form) override { form.activate(); }
    void run_modal(TForm& form) override;
    void run(TForm& main_form) override;
    Modal_result message_box(const Message& message) override;
    bool run_file_dialog(TFileDialog& dialog) override;
    Item_path choose(TPopupMenu& menu, int rise) override;
    void set_busy(bool busy) override { busy_ += busy ? 1 : -1; }
    void minimise() override;
    void stay_open() override { closing = false; }
    void restore() override { minimised_ = false; }
    void start_timer(TTimer& timer) override;
    void stop_timer(TTimer& timer) override;
    void start_watch(TDescriptor_watch& watch) override { watches_.push_back(&watch); }
    void stop_watch(TDescriptor_watch& watch) override { std::erase(watches_, &watch); }
    std::string clipboard_text() const override { return clipboard_; }
    void set_clipboard_text(const std::string& text) override { clipboard_ = text; }
    void use_language(const std::string& code) override { language_ = code; }
    void open_web_address(const std::string& address) override { web_addresses_.push_back(address); }

protected:
    bool paint_pending() override;

private:
    struct Step {
        std::string met; // what the desktop meets, in plain words
        Modal_result answer = Modal_result::none;
        std::vector<std::string> files{};
        std::function<void(TForm&)> user{};
        std::string item{};
    };
    struct Armed_timer {
        TTimer* timer;
        long long due;
    };

    bool take_step(const std::string& met, Step& step);

    std::function<void(const std::string&)> on_fault_;
    Desktop_scope scope_;
    std::deque<Step> script_;
    std::vector<Message> messages_;
    std::vector<TFileDialog> dialogs_;
    std::vector<std::string> web_addresses_;
    std::vector<Armed_timer> timers_;
    std::vector<TDescriptor_watch*> watches_;
    std::string clipboard_;
    std::string language_;
    long long now_ = 0;
    int messages_processed_ = 0;
    int busy_ = 0;
    bool minimised_ = false;
    int minimised_count_ = 0;
};
