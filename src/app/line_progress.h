// Shows on a page how far an operation on many scenarios has come, as long as it lives: a
// bar, and what is worked on. What changed is painted, also while a program is waited for, and a user who
// closes the window meanwhile stops the operation; a user who was asked keeps the window.
#pragma once

#include "platform/process.h"

#include <cstddef>
#include <string>

class Scenarios_page;
class TLabel;
class TProgressBar;

class Line_progress {
public:
    enum class Closing { stops, asks }; // whether the user is asked before the window's closing stops it

    // In the bar and the note, which are hidden at other times.
    Line_progress(TProgressBar& bar, TLabel& note, std::size_t steps, Closing closing = Closing::stops);
    // In those of the page of the scenarios.
    Line_progress(Scenarios_page& page, std::size_t steps, Closing closing = Closing::stops);
    ~Line_progress();
    Line_progress(const Line_progress&) = delete;
    Line_progress& operator=(const Line_progress&) = delete;

    // Tells what is worked on: "3 of 200, clay soil" of the file "clay soil.tvn", in code page 1252.
    void show(std::size_t number, std::size_t total, const std::string& file_name);
    void step();
    void set_position(std::size_t position);
    // Paints. False, and so from then on, when the operation is to stop.
    bool goes_on();

private:
    TProgressBar& bar_;
    TLabel& note_;
    Closing closing_;
    bool is_stopped_ = false;
    bool is_asking_ = false;
    platform::Waiting_guard waiting_;
};
