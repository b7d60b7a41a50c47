#include "app/new_name_form.h"

#include "platform/command_line.h"

#include <cstring>

std::string file_name_characters(const std::string& screen_text) {
    std::string characters = typable_text(screen_text);
    std::erase_if(characters, [](char c) {
        return !platform::can_be_handed_over(c) || std::strchr("\\/:*?<>|", c) != nullptr;
    });
    return characters;
}

Tnew_name_form_check_used::Tnew_name_form_check_used()
    : TForm("new_name_form_check_used", "New scenario name"),
      instruction_label(add<TLabel>("instruction_label", "Enter the name of the scenario to create.", true)),
      new_scenario_name_edit(add<TAutoStringEdit>("new_scenario_name_edit")),
      ok_button(add<TPanel>("panel_buttons", Layout::row).add<TButton>("ok_button", "OK")),
      cancel_button(ok_button.parent()->add<TButton>("cancel_button", "Cancel")) {
    new_scenario_name_edit.input_filter = file_name_characters;
    instruction_label.set_names_next(true);
    ok_button.set_default(true);
    ok_button.set_modal_result(Modal_result::ok);
    cancel_button.set_cancel(true);
    cancel_button.set_modal_result(Modal_result::cancel);
}
