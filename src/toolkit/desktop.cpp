#include "toolkit/desktop.h"

Desktop* current_desktop = nullptr;
