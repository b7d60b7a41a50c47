#include "toolkit/file_list_box.h"

#include "toolkit/form.h"

#include <algorithm>
#include <unordered_map>

Folder_source* current_folder_source = nullptr;

void TFileListBox::set_folder(const std::string& folder) {
    folder_ = folder;
    Update();
}

void TFileListBox::set_mask(const std::string& mask) {
    mask_ = mask;
    Update();
}

void TFileListBox::Update() {
    Folder_source* const source = source_ ? source_ : current_folder_source;
    std::vector<Folder_entry> found;
    std::string failure;
    if (source && !folder_.empty()) {
        found = source->files(folder_, mask_);
        failure = source->failure();
    }
    if (!failure.empty()) {
        if (TForm* const shown_on = form())
            shown_on->notice(failure, Mark::exclamation);
        if (folder_ == listed_folder_ && mask_ == listed_mask_)
            return; // what stood there, with its ticks, is nearer to the truth
    }
    listed_folder_ = folder_;
    listed_mask_ = mask_;
    entries_ = std::move(found);

    std::unordered_map<std::string, int> before;
    for (int index = count() - 1; index >= 0; --index)
        before[line(index).text] = index;
    bool same = count() == static_cast<int>(entries_.size());
    int cursor = -1;
    std::vector<Line> lines;
    lines.reserve(entries_.size());
    for (const Folder_entry& entry : entries_) {
        const auto known = before.find(entry.name);
        const int index = static_cast<int>(lines.size());
        if (known != before.end() && known->second == item_index())
            cursor = index;
        same = same && line(index).text == entry.name;
        lines.push_back(known == before.end() ? Line{entry.name} : line(known->second));
    }
    if (!same)
        replace_lines(std::move(lines), cursor);
}

std::string TFileListBox::path(int index) const {
    if (!has_line(index))
        return {};
    const std::string& name = line(index).text;
    const auto entry = std::find_if(entries_.begin(), entries_.end(),
                                    [&](const Folder_entry& known) { return known.name == name; });
    if (entry != entries_.end())
        return entry->path;
    const bool open_end = !folder_.empty() && folder_.back() != '\\';
    return folder_ + (open_end ? "\\" : "") + name;
}

std::vector<std::string> TFileListBox::selected_paths() const {
    std::vector<std::string> paths;
    for (int index = 0; index < count(); ++index)
        if (selected(index))
            paths.push_back(path(index));
    return paths;
}

void TShellTreeView::set_folder(const std::string& folder) {
    folder_ = folder;
    selected_folder_.clear();
    Update();
}

std::vector<Folder_entry> TShellTreeView::folders_of(const std::string& path) const {
    Folder_source* const source = source_ ? source_ : current_folder_source;
    return source && !path.empty() ? source->folders(path) : std::vector<Folder_entry>();
}

bool TShellTreeView::select(const std::string& path) {
    if (!begin_action() || path.empty())
        return false;
    if (assign(selected_folder_, path, Aspect::cursor) && on_change)
        on_change();
    return true;
}
