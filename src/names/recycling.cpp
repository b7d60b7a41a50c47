#include "names/recycling.h"

#include "platform/files.h"
#include "platform/shell.h"

#include <algorithm>

namespace TESK {

Recycling recycle_all(const std::vector<std::string>& names, bool permanently,
                      const std::function<bool(std::size_t done)>& progress) {
    Recycling result;
    const auto one_more = [&](std::size_t done) {
        result.done = done;
        result.was_stopped = progress && !progress(done);
        return !result.was_stopped;
    };
    std::vector<bool> gone;
    if (permanently) {
        for (std::size_t i = 0; i < names.size() && !result.was_stopped; ++i) {
            gone.push_back(platform::shell().delete_permanently(names[i]));
            if (gone.back())
                one_more(result.done + 1);
        }
    } else {
        gone = platform::shell().recycle_all(names, one_more);
    }
    // A stop comes behind one that is gone.
    const auto last = std::find(gone.rbegin(), gone.rend(), true);
    const auto reached = result.was_stopped ? static_cast<std::size_t>(gone.rend() - last) : names.size();
    for (std::size_t i = 0; i < reached; ++i)
        if (platform::exists(names[i]) || platform::is_link(names[i]))
            result.kept.push_back(names[i]);
    return result;
}

} // namespace TESK
