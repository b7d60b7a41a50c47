#include "editing/number_edit_bars.h"

#include "units/units_convertor.h"

namespace {

constexpr int number_width = 12; // characters

} // namespace

TAutoNumberEditBar::TAutoNumberEditBar(std::string name) : TPanel(std::move(name), Layout::row) {}

void TAutoNumberEditBar::make_front() {
    status_LED = &add<TAutoValidStatusLED>("status_LED");
    panel_caption = &add<TLabel>("panel_caption");
    Place place;
    place.stretch = 1;
    panel_caption->set_place(place);
}

void TAutoNumberEditBar::make_back(TAutoNumberEdit& edit, const char* clear_hint, const char* help_hint) {
    Place place;
    place.width = number_width;
    edit.set_place(place);
    panel_units = &add<TLabel>("panel_units");
    panel_units->set_place(place);
    units_combobox = &add<TComboBox>("units_combobox");
    units_combobox->set_place(place);
    units_combobox->set_visible(false);
    cancel_button = &add<TButton>("cancel_button", "X");
    cancel_button->set_hint(clear_hint);
    help_button = &add<TButton>("help_button", "?");
    help_button->set_hint(help_hint);
    help_button->on_click = [&edit] { edit.Help_link::open(); };
}

void TAutoNumberEditBar::set_description_label(const std::string& text) {
    panel_caption->set_text(text);
    panel_caption->set_hint(text);
}

void TAutoNumberEditBar::set_units_label(const std::string& text) {
    panel_units->set_text(text);
    panel_units->set_hint(text);
}

// The caption, where there is one; the unit as it is told or else by its code.
void TAutoNumberEditBar::show_labels(const TESK::Valid_number& valid) {
    if (valid.caption_1 != nullptr)
        set_description_label(screen_text(valid.caption_1));
    std::string description;
    if (valid.units_label != nullptr)
        set_units_label(screen_text(valid.units_label));
    else if (valid.stored_units.code != 0)
        set_units_label(screen_text(valid.stored_units.get_label(description)));
}

TAutoFloat32EditBar::TAutoFloat32EditBar(std::string name)
    : TAutoNumberEditBar(std::move(name)),
      edit_field(make_row<TAutoFloat32Edit>("This button clears the entry to the default value.",
                                            "This button displays context sensitive help")) {
    edit_field.leave_handler = [this] { convert_shown_value_to_value(); };
    cancel_button->on_click = [this] { clear_button_clicked(); };
    units_combobox->on_change = [this] { units_chosen(); };
}

void TAutoFloat32EditBar::bind_to(TESK::Valid_float32* valid, const char* help_URL) {
    valid_ = valid;
    if (valid == nullptr) {
        edit_field.bind_to(nullptr, 2, help_URL);
        status_LED->bind_to(nullptr, nullptr);
    } else {
        shown_value_ = valid->value;
        show_labels(*valid);
        edit_field.bind_to(&shown_value_, valid->precision, help_URL);
        status_LED->bind_to(&valid->status, nullptr);
    }
    help_button->set_visible(help_URL != nullptr);
    fill_units();
    Update();
}

void TAutoFloat32EditBar::fill_units() {
    if (valid_ == nullptr || valid_->units_selectable == nullptr)
        return;
    units_.clear();
    std::vector<std::string> labels;
    int shown = -1;
    for (const std::uint32_t* code = valid_->units_selectable; *code != 0; ++code) {
        std::string description;
        std::string abbreviation;
        const TESK::Units_clad units(*code);
        if (!units.compose_labels(description, abbreviation))
            continue;
        if (*code == valid_->shown_units.code)
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
    if (valid_ == nullptr || index < 0 || index >= static_cast<int>(units_.size()))
        return;
    // The number stays as typed and is now meant in the other unit.
    valid_->shown_units.code = units_[static_cast<std::size_t>(index)];
    convert_shown_value_to_value();
}

void TAutoFloat32EditBar::show_value() {
    if (valid_ != nullptr) {
        shown_value_ = valid_->value;
        if (valid_->stored_units.code != 0)
            TESK::Units_convertor().convert(valid_->value, valid_->stored_units.code, shown_value_,
                                            valid_->shown_units.code);
    }
    edit_field.Update();
}

void TAutoFloat32EditBar::convert_shown_value_to_value() {
    if (valid_ != nullptr)
        TESK::Units_convertor().convert(shown_value_, valid_->shown_units.code, valid_->value,
                                        valid_->stored_units.code);
}

void TAutoFloat32EditBar::Update() {
    show_value();
    if (valid_ != nullptr) {
        std::string message;
        valid_->validate(message, true);
    }
    status_LED->Update();
    fill_units();
}

void TAutoFloat32EditBar::clear_button_clicked() {
    if (valid_ != nullptr)
        valid_->value = static_cast<float>(valid_->default_value);
    show_value();
}

TAutoInt16EditBar::TAutoInt16EditBar(std::string name)
    : TAutoNumberEditBar(std::move(name)),
      edit_field(make_row<TAutoInt16Edit>("This button clears the input field.",
                                          "This button displays context sensitive help for this field")) {
    cancel_button->on_click = [this] { clear_button_clicked(); };
}

void TAutoInt16EditBar::bind_to(TESK::Valid_int16* valid, const char* help_URL) {
    valid_ = valid;
    if (valid == nullptr) {
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
    if (valid_ != nullptr) {
        std::string message;
        valid_->validate(message, true);
    }
    status_LED->Update();
}

void TAutoInt16EditBar::clear_button_clicked() {
    if (valid_ != nullptr)
        valid_->value = static_cast<std::int16_t>(valid_->default_value);
    edit_field.Update();
}
