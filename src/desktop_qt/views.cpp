#include "desktop_qt/views.h"

namespace {

struct Kind_of_view {
    Control_kind kind;
    View_maker* make;
};

constexpr Kind_of_view kinds[] = {
    {Control_kind::form, make_form_view},
    {Control_kind::panel, make_panel_view},
    {Control_kind::group_box, make_group_view},
    {Control_kind::page_control, make_page_control_view},
    {Control_kind::tab_sheet, make_sheet_view},
    {Control_kind::label, make_label_view},
    {Control_kind::edit, make_edit_view},
    {Control_kind::memo, make_memo_view},
    {Control_kind::check_box, make_check_box_view},
    {Control_kind::radio_group, make_radio_view},
    {Control_kind::combo_box, make_combo_view},
    {Control_kind::list_box, make_list_view},
    {Control_kind::shell_list, make_list_view},
    {Control_kind::shell_tree, make_tree_view},
    {Control_kind::button, make_button_view},
    {Control_kind::speed_button, make_speed_button_view},
    {Control_kind::spin_arrows, make_spin_view},
    {Control_kind::image, make_image_view},
    {Control_kind::month_grid, make_month_view},
    {Control_kind::progress_bar, make_progress_view},
    {Control_kind::ruler, make_ruler_view},
    {Control_kind::web_view, make_web_view},
    {Control_kind::map_view, make_map_view},
    {Control_kind::table, make_table_view},
    {Control_kind::splitter, make_splitter_view},
    {Control_kind::main_menu, make_main_menu_view},
    {Control_kind::status_line, make_status_line_view},
};

} // namespace

View& make_view(View_context& context, TControl& control, QWidget* parent) {
    const Kind_of_view* kind = kinds;
    while (kind->kind != control.kind())
        ++kind;
    View& view = kind->make(context, control, parent);
    view.show_all();
    return view;
}

QWidget& widget_of(View_context& context, TControl& control, QWidget* parent) {
    View& view = control.view() ? static_cast<View&>(*control.view()) : make_view(context, control, parent);
    return view.widget();
}
