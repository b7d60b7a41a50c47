// How the drawing layer reaches the host through the rest of the program: names on the screen are UTF-8.
#pragma once

#include "desktop_qt/qt_desktop.h"

Host_functions host_functions();
