// The pages of a window, one after another, as a user would go through their tabs.
#pragma once

#include "toolkit/control.h"

#include <functional>
#include <string>

// Brings each page below the control that can come to the front to the front, pages within pages too, and
// calls `visit` with the page's captions, outermost first and with ", " between them. In the end the first
// ones are in front.
void visit_pages(TControl& within, const std::function<void(const std::string& captions)>& visit);
