// The map of the polygons that a run is over: where a shapefile lies beside the polygon attribute table, its
// polygons in the colours of an attribute, of that table or of one that a run left.
#pragma once

#include "app/project_page.h"
#include "operations/attribute_table.h"
#include "operations/polygon_reader.h"
#include "toolkit/combo_box.h"
#include "toolkit/map_view.h"

#include <array>
#include <memory>
#include <optional>

class Map_page : public Project_page {
public:
    explicit Map_page(TTilverra_project_form& project_form);

    // What reads maps; null for none, and there is no page. Outlives the page.
    void set_reader(Polygon_reader* reader) { reader_ = reader; }
    // Whether there is a map to show. It is read when the page comes to the front.
    void show_hide();

    TTabSheet& map_tabsheet;
    TComboBox& map_table_combo;
    TComboBox& map_attribute_combo;
    TButton& map_show_table_button; // of the chosen table
    TMapView& map_view;
    TPanel& map_legend_panel;
    TLabel& map_note;

private:
    static constexpr std::size_t most_entries = 11; // of a legend

    std::string attribute_file() const;
    std::string shapefile() const;
    std::string chosen_file() const;
    void read_map();
    void list_tables();
    void table_chosen();
    void attribute_chosen();
    void show_legend(const Map_colouring& colouring);
    std::string description_of(int polygon) const;

    Polygon_reader* reader_ = nullptr;
    std::string shown_file_;
    Attribute_table attributes_; // of the map's polygons
    Attribute_table output_;     // the other table that is chosen
    std::vector<std::string> tables_;
    bool colours_by_output_ = false;
    std::array<TLabel*, most_entries> legend_{};
};
