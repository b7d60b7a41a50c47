#include "toolkit/desktop.h"

Desktop* current_desktop = nullptr;

bool Desktop::process_messages() {
    const bool outer = std::exchange(holds_input_, true);
    const bool goes_on = paint_pending();
    holds_input_ = outer;
    return goes_on;
}
