// The makers of all kinds of view.
#pragma once

#include "desktop_qt/view.h"

View& make_edit_view(View_context& context, TControl& control, QWidget* parent);
View& make_form_view(View_context& context, TControl& control, QWidget* parent);
View& make_list_view(View_context& context, TControl& control, QWidget* parent);
View& make_panel_view(View_context& context, TControl& control, QWidget* parent);
