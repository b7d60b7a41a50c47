// The makers of all kinds of view.
#pragma once

#include "desktop_qt/view.h"

using View_maker = View&(View_context& context, TControl& control, QWidget* parent);

View_maker make_button_view, make_check_box_view, make_combo_view, make_edit_view, make_form_view,
    make_group_view, make_image_view, make_label_view, make_main_menu_view, make_splitter_view,
    make_status_line_view, make_table_view, make_list_view, make_map_view, make_memo_view, make_month_view,
    make_page_control_view, make_panel_view, make_progress_view, make_radio_view, make_ruler_view,
    make_sheet_view, make_speed_button_view, make_spin_view, make_tree_view, make_web_view;
