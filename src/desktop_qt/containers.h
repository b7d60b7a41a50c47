// The views of what holds other controls.
#pragma once

#include "desktop_qt/view.h"
#include "toolkit/form.h"

// Fills a widget with the views of a container's children, laid out as the container says. Views that are
// already there stay.
void lay_out(View_context& context, TContainer& container, QWidget& widget);
