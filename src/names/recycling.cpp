#include "names/recycling.h"

#include "platform/files.h"
#include "platform/shell.h"

namespace TESK {

Recycling recycle_all(const std::vector<std::string>& names, bool permanently,
                      const std::function<bool(std::size_t done)>& progress) {
    Recycling result;
    const auto one_more = [&](std::size_t done) {
        result.done = done;
        result.was_stopped = progress && !progress(done);
        return !result.was_stopped;
    };
    if (permanently) {
        for (const std::string& name : names)
            if (platform::shell().delete_permanently(name) && !one_more(result.done + 1))
                break;
    } else {
        platform::shell().recycle_all(names, one_more);
    }
    for (const std::string& name : names)
        if (platform::exists(name) || platform::is_link(name))
            result.kept.push_back(name);
    return result;
}

} // namespace TESK
