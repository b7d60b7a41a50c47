#include "toolkit/screen_memory.h"

#include "toolkit/splitter.h"
#include "toolkit/table.h"

#include <charconv>

Screen_memory* current_screen_memory = nullptr;

void keep_position(TSplitter& splitter, int first) {
    const std::string kept = current_screen_memory ? current_screen_memory->recall(splitter.name()) : "";
    int position = first;
    std::from_chars(kept.data(), kept.data() + kept.size(), position);
    splitter.set_position(std::max(position, 0));
    splitter.on_move = [&splitter] {
        if (current_screen_memory)
            current_screen_memory->remember(splitter.name(), std::to_string(splitter.position()));
    };
}

void keep_columns(TTable& table) {
    if (current_screen_memory)
        table.set_layout(current_screen_memory->recall(table.name()));
    table.on_columns = [&table] {
        if (current_screen_memory)
            current_screen_memory->remember(table.name(), table.layout());
    };
}
