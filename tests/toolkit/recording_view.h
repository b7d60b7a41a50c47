// A view that writes down what its control tells it.
#pragma once

#include "toolkit/control.h"

struct Recording_view : Control_view {
    using Control_view::Control_view;
    void changed(const Change& change) override { changes.push_back(change); }
    void control_gone(bool) override { gone = true; }

    std::vector<Change> changes;
    bool gone = false;
};
