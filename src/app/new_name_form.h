// The dialog that asks for the name of a new scenario.
#pragma once

#include "editing/auto_edits.h"
#include "toolkit/button.h"
#include "toolkit/label.h"

#include <string>

// What remains of a text that is typed as the name of a new file: the characters that a name can have.
std::string file_name_characters(const std::string& screen_text);

class Tnew_name_form_check_used : public TForm {
public:
    Tnew_name_form_check_used();

    TLabel& instruction_label;
    TAutoStringEdit& new_scenario_name_edit; // the caller binds it to the text for the name
    TButton& ok_button;
    TButton& cancel_button;
};
