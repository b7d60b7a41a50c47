// The icon of the program's windows: a seedling.
#pragma once

#include <QtGui/QIcon>

QIcon window_icon();
