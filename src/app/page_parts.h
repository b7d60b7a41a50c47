// What the pages of the project form are made with.
#pragma once

#include "editing/page_parts.h"
