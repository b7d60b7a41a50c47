// Rows that show one validated number of a record: its status, caption, value and unit, with a button that
// sets it back and one that opens the help on it.
#pragma once

#include "editing/auto_edits.h"
#include "editing/auto_status.h"
#include "records/validation.h"
#include "toolkit/button.h"
#include "toolkit/combo_box.h"
#include "toolkit/label.h"
#include "toolkit/panel.h"

#include <cstdint>
#include <vector>

// What both bars are made of, but for the edit.
class TAutoNumberEditBar : public TPanel {
public:
    // The texts of the caption and of the unit, which are also their hints.
    const std::string& Description_label() const { return panel_caption->native_text(); }
    void set_Description_label(const std::string& text);
    const std::string& Units_label() const { return panel_units->native_text(); }
    void set_Units_label(const std::string& text);

    // Made by the bar itself, never null.
    TAutoValidStatusLED* status_LED;
    TLabel* panel_caption;
    TLabel* panel_units;
    TComboBox* units_combobox;
    TButton* cancel_button;
    TButton* help_button;

protected:
    explicit TAutoNumberEditBar(std::string name);

    // Makes the edit, and what stands before and behind it. The hints are those of the two buttons.
    template <class Edit>
    Edit& make_row(const char* clear_hint, const char* help_hint) {
        make_front();
        Edit& edit = add<Edit>("edit_field");
        make_back(edit, clear_hint, help_hint);
        return edit;
    }
    void show_labels(const TESK::Valid_number& number);

private:
    void make_front();
    void make_back(TAutoNumberEdit& edit, const char* clear_hint, const char* help_hint);
};

// A number of 32 bits, shown in the unit that the user chose. A keystroke reaches the shown value alone; the
// record changes when the focus leaves the edit, and the colour and the light wait for the next Update.
class TAutoFloat32EditBar : public TAutoNumberEditBar {
public:
    explicit TAutoFloat32EditBar(std::string name);

    // Null shows 0, and binds nothing.
    void bind_to(TESK::Valid_float32* number, const char* help_URL);
    void Update() override;

    // The stored value on the screen, in the shown unit; and back.
    void show_value();
    void convert_shown_value_to_value();

    TAutoFloat32Edit& edit_field;

private:
    void fill_units();
    void units_chosen();
    void clear_button_clicked();

    TESK::Valid_float32* valid = nullptr;
    float shown_value = 0;
    std::vector<std::uint32_t> units_; // of the list's lines
};

// A whole number of 16 bits. The record changes at each keystroke; leaving brings the bar up to date.
class TAutoInt16EditBar : public TAutoNumberEditBar {
public:
    explicit TAutoInt16EditBar(std::string name);

    // Null shows 0, and binds nothing.
    void bind_to(TESK::Valid_int16* number, const char* help_URL);
    void Update() override;

    TAutoInt16Edit& edit_field;

private:
    void clear_button_clicked();

    TESK::Valid_int16* valid = nullptr;
};
