// The dialog that asks for the name of a new scenario.
#pragma once

#include "editing/auto_edits.h"
#include "toolkit/button.h"
#include "toolkit/label.h"

class Tnew_name_form_check_used : public TForm {
public:
    Tnew_name_form_check_used();

    TLabel& instruction_label;
    TAutoStringEdit& new_scenario_name_edit; // the caller binds it to the text for the name
    TButton& ok_button;
    TButton& cancel_button;
};
