#include "app/map_page.h"

#include "app/tilverra_project_form.h"
#include "platform/files.h"
#include "toolkit/desktop.h"
#include "toolkit/screen_language.h"

namespace {

constexpr const char* own_table = "Table of the map";

TComboBox& add_choice(TPanel& row, const char* name, const char* caption) {
    row.add<TLabel>(std::string("label_") + name, caption).set_names_next(true);
    return fill(row.add<TComboBox>(name));
}

std::vector<std::string> tables_in(const std::string& folder) {
    std::vector<std::string> names;
    if (current_folder_source != nullptr && platform::is_folder(folder))
        for (const Folder_entry& entry : current_folder_source->files(screen_text(folder), "*.dbf"))
            names.push_back(entry.path);
    return names;
}

} // namespace

Map_page::Map_page(TTilverra_project_form& project_form)
    : Project_page(project_form),
      map_tabsheet(project_form.GIS.GIS_pagecontrol.add<TTabSheet>("map_tabsheet", "Map")),
      map_table_combo(add_choice(add_row(map_tabsheet, "map_choices_panel"), "map_table_combo", "Table")),
      map_attribute_combo(
          add_choice(static_cast<TPanel&>(*map_table_combo.parent()), "map_attribute_combo", "Coloured by")),
      map_show_table_button(add_button(*map_table_combo.parent(), "map_show_table_button", "Show table",
                                       "Show the chosen table in a window of its own.")),
      map_view(fill(fill(map_tabsheet.add<TPanel>("map_panel", Layout::row)).add<TMapView>("map_view"))),
      map_legend_panel(map_view.parent()->add<TPanel>("map_legend_panel")),
      map_note(add_note(map_tabsheet, "map_note", "")) {
    for (TLabel*& entry : legend_) {
        entry = &map_legend_panel.add<TLabel>("legend_" + std::to_string(&entry - legend_.data()));
        entry->set_text_is_data(true);
    }
    Place wide = map_legend_panel.place();
    wide.width = 24;
    wide.align = Align::start; // at the top, however many entries there are
    map_legend_panel.set_place(wide);
    map_note.set_text_is_data(true);
    map_view.set_hint("Turn the wheel or press + and - to enlarge, drag or use the arrow keys to move, Home "
                      "for all; Page Down "
                      "and Page Up go through the polygons");
    map_tabsheet.set_visible(false);
    map_tabsheet.on_show = [this] { read_map(); };
    map_table_combo.on_change = [this] { table_chosen(); };
    map_attribute_combo.on_change = [this] { attribute_chosen(); };
    map_show_table_button.on_click = [this] { form.tables.show(chosen_file()); };
    map_view.describe = [this](int polygon) { return description_of(polygon); };
    map_view.on_hover = [this] { map_note.set_text(map_view.description()); };
}

std::string Map_page::attribute_file() const {
    TESK::Smart_file_name file;
    file = std::string(record().GIS_parameters.coverage_PAT_filename);
    workspace().enter_project_folder();
    file.qualify();
    return file;
}

std::string Map_page::shapefile() const {
    TESK::File_name file(attribute_file().c_str());
    file.set_ext("shp");
    return file;
}

std::string Map_page::chosen_file() const {
    const int index = map_table_combo.item_index();
    return index > 0 ? tables_[static_cast<std::size_t>(index)] : attribute_file();
}

void Map_page::show_hide() {
    map_tabsheet.set_visible(reader_ != nullptr && has_project() && workspace().coverage_exists() &&
                             platform::is_file(shapefile()));
    if (map_tabsheet.visible() && form.GIS.GIS_pagecontrol.active_page() == &map_tabsheet)
        read_map();
}

void Map_page::read_map() {
    if (reader_ == nullptr || !has_project())
        return;
    list_tables();
    if (shown_file_ == shapefile())
        return;
    const Busy_pointer busy;
    shown_file_ = shapefile();
    auto map = std::make_shared<Polygon_map>(reader_->read(shown_file_));
    attributes_ = Attribute_table(attribute_file(), true);
    const std::string failure =
        map->failure.empty() ? trouble_with(attributes_, attribute_file()) : worded(map->failure);
    map_note.set_text(failure);
    map_view.set_map(std::move(map));
    map_table_combo.set_item_index(0);
    table_chosen();
    if (!failure.empty())
        map_note.set_text(failure);
}

// A run leaves its tables while the project is open.
void Map_page::list_tables() {
    tables_ = {""};
    std::vector<std::string> items = {worded(own_table)};
    if (workspace().ensure_project_directory()) {
        const Tilverra_project_directory& project = *workspace().project_directory;
        for (const std::string& folder : {std::string(project.get_GIS_directory(false)),
                                          std::string(project.get_aggregation_directory(false))})
            for (const std::string& table : tables_in(folder)) {
                tables_.push_back(record_text(table));
                items.push_back(table.substr(table.find_last_of('\\') + 1));
            }
    }
    if (items == map_table_combo.items())
        return;
    // The one that is chosen stays so; another language has other words for the first.
    const int chosen = map_table_combo.item_index();
    map_table_combo.set_items(items);
    map_table_combo.set_item_index(chosen < static_cast<int>(items.size()) ? chosen : 0);
}

void Map_page::table_chosen() {
    colours_by_output_ = map_table_combo.item_index() > 0;
    if (colours_by_output_)
        output_ = Attribute_table(chosen_file(), false);
    const Attribute_table& table = colours_by_output_ ? output_ : attributes_;
    std::vector<std::string> names;
    for (std::size_t field = 0; field < table.field_count(); ++field)
        names.push_back(screen_text(table.field_name(field)));
    map_attribute_combo.set_items(names);
    // The soils tell most of a map; else the first attribute.
    const std::size_t soil = table.find_field(record().GIS_parameters.soil_attribute);
    map_attribute_combo.set_item_index(soil < table.field_count() ? static_cast<int>(soil) : 0);
    map_note.set_text(trouble_with(table, chosen_file()));
    attribute_chosen();
}

void Map_page::attribute_chosen() {
    const Attribute_table& table = colours_by_output_ ? output_ : attributes_;
    const auto field = static_cast<std::size_t>(map_attribute_combo.item_index());
    std::vector<std::string_view> values;
    if (field < table.field_count() && !colours_by_output_) {
        for (std::size_t row = 0; row < table.row_count(); ++row)
            values.push_back(table.text(row, field));
    } else if (field < table.field_count()) {
        const std::string& key = record().GIS_parameters.polygon_ID_attribute;
        const std::size_t map_key = attributes_.find_field(key);
        const std::size_t other_key = output_.find_field(key);
        if (map_key < attributes_.field_count() && other_key < output_.field_count())
            values = joined_values(attributes_, map_key, output_, other_key, field);
        else
            map_note.set_text(worded("The map and the table must both have the attribute of the polygon "
                                     "identifier, %1, to be brought together.",
                                     screen_text(key)));
    }
    const Map_colouring colouring = colour_by(values, field < table.field_count() && table.is_number(field));
    map_view.set_colours(colouring.colours);
    show_legend(colouring);
}

void Map_page::show_legend(const Map_colouring& colouring) {
    for (std::size_t i = 0; i < legend_.size(); ++i) {
        const bool is_used = i < colouring.legend.size();
        legend_[i]->set_visible(is_used);
        legend_[i]->set_text(!is_used                           ? ""
                             : colouring.legend[i].text.empty() ? worded("Other values")
                                                                : screen_text(colouring.legend[i].text));
        legend_[i]->set_colour(is_used ? colouring.legend[i].colour : desktop_colour);
    }
}

std::string Map_page::description_of(int polygon) const {
    const auto row = static_cast<std::size_t>(polygon);
    std::string text;
    if (row >= attributes_.row_count())
        return text;
    for (std::size_t field = 0; field < attributes_.field_count(); ++field) {
        text += text.empty() ? "" : ", ";
        text += screen_text(attributes_.field_name(field)) + ' ' +
                screen_text(std::string(attributes_.text(row, field)));
    }
    return text;
}
