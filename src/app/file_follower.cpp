#include "app/file_follower.h"

#include <algorithm>

File_follower::File_follower() {
    ready_.on_ready = [this] {
        const auto changes = watch_.take_changes();
        for (const platform::Folder_watch::Change& change : changes)
            if (change.has_ended) {
                std::erase(watches_, change.watch);
                followed_.clear(); // is to be looked at anew
            }
        settling_.set_enabled(settling_.enabled() || !changes.empty());
    };
    settling_.on_timer = [this] {
        settling_.set_enabled(false);
        if (on_change)
            on_change();
    };
}

void File_follower::follow(const std::vector<std::string>& folders, const std::vector<std::string>& files) {
    std::vector<std::string> wanted = folders;
    wanted.push_back("");
    wanted.insert(wanted.end(), files.begin(), files.end());
    if (wanted == followed_)
        return;
    for (const int watch : watches_)
        watch_.forget(watch);
    watches_.clear();
    bool has_all = true;
    const auto note = [&](std::optional<int> watch) {
        has_all = has_all && watch.has_value();
        if (watch)
            watches_.push_back(*watch);
    };
    for (const std::string& folder : folders)
        if (!folder.empty())
            note(watch_.watch_folder(folder));
    for (const std::string& file : files)
        if (!file.empty())
            note(watch_.watch_file(file));
    // What is missing now may be there the next time.
    followed_ = has_all ? wanted : std::vector<std::string>();
    ready_.set_enabled(!watches_.empty());
}
