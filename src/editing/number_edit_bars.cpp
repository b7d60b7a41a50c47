#include "editing/number_edit_bars.h"

#include "units/units_convertor.h"

namespace {

constexpr int number_width = 12; // characters
constexpr int unit_width = 14;
constexpr int button_width = 3;

} // namespace

TAutoNumberEditBar::TAutoNumberEditBar(std::string name) : TPanel(std::move(name), Layout::row) {}

void TAutoNumberEditBar::make_front() {
    status_LED = &add<TAutoValidStatusLED>("status_LED");
    panel_caption = &add<TLabel>("panel_caption");
    panel_caption->set_names_next(true);
    Place place;
    place.stretch = 1;
    panel_caption->set_place(place);
}

void TAutoNumberEditBar::make_back(TAutoNumberEdit& edit, const char* clear_hint, const char* help_hint) {
    Place place;
    place.width = number_width;
    edit.set_place(place);
    place.width = unit_width;
    panel_units = &add<TLabel>("panel_units");
    panel_units->set_place(place);
    units_combobox = &add<TComboBox>("units_combobox");
    units_combobox->set_place(place);
    units_combobox->set_visible(false);
    cancel_button = &add<TButton>("cancel_button", "X");
    cancel_button->set_hint(clear_hint);
    help_button = &add<TButton>("help_button", "?");
    help_button->set_hint(help_hint);
    place.width = button_width;
    cancel_button->set_place(place);
    help_button->set_place(place);
    help_button->on_click = [&edit] { edit.Help_link::open(); };
}

void TAutoNumberEditBar::set_Description_label(const std::string& text) {
    panel_caption->set_text(text);
    panel_caption->set_hint(text);
}

void TAutoNumberEditBar::set_Units_label(const std::string& text) {
    panel_units->set_text(text);
    panel_units->set_hint(text);
}

// The caption, where there is one; the unit as it is told or else by its code.
void TAutoNumberEditBar::show_labels(const TESK::Valid_number& number) {
    if (number.caption_1 != nullptr)
        set_Description_label(screen_text(number.caption_1));
    std::string description;
    if (number.units_label != nullptr)
        set_Units_label(screen_text(number.units_label));
    else if (number.stored_units.code != 0)
        set_Units_label(screen_text(number.stored_units.get_label(description)));
}

TAutoFloat32EditBar::TAutoFloat32EditBar(std::string name)
    : TAutoNumberEditBar(std::move(name)),
      edit_field(make_row<TAutoFloat32Edit>("This button clears the entry to the default value.",
                                            "This button displays context sensitive help")) {
    edit_field.leave_handler = [this] { convert_shown_value_to_value(); };
    cancel_button->on_click = [this] { clear_button_clicked(); };
    units_combobox->on_change = [this] { units_chosen(); };
}

void TAutoFloat32EditBar::bind_to(TESK::Valid_float32* number, const char* help_URL) {
    valid = number;
    if (number == nullptr) {
        edit_field.bind_to(nullptr, 2, help_URL);
        status_LED->bind_to(nullptr, nullptr);
    } else {
        shown_value = valid->value;
        show_labels(*valid);
        edit_field.bind_to(&shown_value, valid->precision, help_URL);
        status_LED->bind_to(&valid->status, nullptr);
    }
    help_button->set_visible(help_URL != nullptr);
    units_combobox->set_visible(false);
    panel_units->set_visible(true);
    Update();
}

void TAutoFloat32EditBar::fill_units() {
    if (valid == nullptr || valid->units_selectable == nullptr)
        return;
    units_.clear();
    std::vector<std::string> labels;
    int shown = -1;
    for (const std::uint32_t* code = valid->units_selectable; *code != 0; ++code) {
        std::string description;
        std::string abbreviation;
        const TESK::Units_clad units(*code);
        if (!units.compose_labels(description, abbreviation))
            continue;
        if (*code == valid->shown_units.code)
            shown = static_cast<int>(units_.size());
        units_.push_back(*code);
        labels.push_back(screen_text(units.get_abbreviation(abbreviation)));
    }
    units_combobox->set_items(labels);
    units_combobox->set_item_index(shown);
    units_combobox->set_visible(true);
    panel_units->set_visible(false);
}

void TAutoFloat32EditBar::units_chosen() {
    const int index = units_combobox->item_index();
    if (valid == nullptr || index < 0 || index >= static_cast<int>(units_.size()))
        return;
    // The number stays as typed and is now meant in the other unit.
    valid->shown_units.code = units_[static_cast<std::size_t>(index)];
    convert_shown_value_to_value();
}

void TAutoFloat32EditBar::show_value() {
    if (valid != nullptr) {
        shown_value = valid->value;
        if (valid->stored_units.code != 0)
            TESK::Units_convertor().convert(valid->value, valid->stored_units.code, shown_value,
                                            valid->shown_units.code);
    }
    edit_field.Update();
}

void TAutoFloat32EditBar::convert_shown_value_to_value() {
    if (valid != nullptr)
        TESK::Units_convertor().convert(shown_value, valid->shown_units.code, valid->value,
                                        valid->stored_units.code);
}

void TAutoFloat32EditBar::Update() {
    show_value();
    // The leave handler of the bar left the colour as it was.
    if (!edit_field.focused())
        edit_field.restore_colour();
    if (valid != nullptr) {
        std::string message;
        valid->validate(message, true);
    }
    status_LED->Update();
    fill_units();
}

void TAutoFloat32EditBar::clear_button_clicked() {
    if (valid != nullptr)
        valid->value = static_cast<float>(valid->default_value);
    show_value();
}

TAutoInt16EditBar::TAutoInt16EditBar(std::string name)
    : TAutoNumberEditBar(std::move(name)),
      edit_field(make_row<TAutoInt16Edit>("This button clears the input field.",
                                          "This button displays context sensitive help for this field")) {
    cancel_button->on_click = [this] { clear_button_clicked(); };
}

void TAutoInt16EditBar::bind_to(TESK::Valid_int16* number, const char* help_URL) {
    valid = number;
    if (number == nullptr) {
        edit_field.bind_to(nullptr, help_URL);
        status_LED->bind_to(nullptr, nullptr);
    } else {
        show_labels(*valid);
        edit_field.bind_to(&valid->value, help_URL);
        status_LED->bind_to(&valid->status, nullptr);
    }
    help_button->set_visible(help_URL != nullptr);
    Update();
}

void TAutoInt16EditBar::Update() {
    edit_field.Update();
    if (valid != nullptr) {
        std::string message;
        valid->validate(message, true);
    }
    status_LED->Update();
}

void TAutoInt16EditBar::clear_button_clicked() {
    if (valid != nullptr)
        valid->value = static_cast<std::int16_t>(valid->default_value);
    edit_field.Update();
}
