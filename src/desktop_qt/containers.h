// Laying out what a container holds.
#pragma once

#include "desktop_qt/view.h"
#include "toolkit/panel.h"

// Fills a widget with the views of a container's children, laid out as the container says. Views that are
// already there stay.
void lay_out(View_context& context, TContainer& container, QWidget& widget);
