// A dialog that tells facts, to be read and copied: a line for each with what it is about, and a text below.
#pragma once

#include "toolkit/button.h"
#include "toolkit/edit.h"
#include "toolkit/form.h"
#include "toolkit/label.h"

#include <functional>
#include <string>
#include <utility>
#include <vector>

class Tfacts_form : public TForm {
public:
    explicit Tfacts_form(const char* title);

    // A fact in UTF-8 under a caption of the program's own. A long one is cut in its middle, as paths are.
    void add_fact(const char* caption, const std::string& fact, Mark mark = Mark::none);
    // What is told below, a line for each; without any there is no room for it.
    void set_lines(const std::vector<std::string>& lines);
    // A further button.
    void set_action(const char* caption, const char* hint, std::function<void()> action);

private:
    TPanel& rows_;

public:
    TMemo& facts_memo; // hidden while there is nothing in it
    TButton& copy_button;
    TButton& action_button; // not shown without an action
    TButton& close_button;

private:
    // All that is told, in the user's language.
    std::string told() const;

    std::vector<std::pair<TLabel*, TLabel*>> facts_; // captions and what they are about
};
