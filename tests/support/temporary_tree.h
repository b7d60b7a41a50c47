// A folder on the host that lives as long as the object, told by host paths.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>

// The names of what is in a folder of the host, in their order, each with a blank behind it.
inline std::string entries_of(const std::string& folder) {
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        names.insert(entry.path().filename());
    std::string text;
    for (const std::string& name : names)
        text += name + ' ';
    return text;
}
// How many there are, those that no listing shows included; 0 where there is no folder.
inline long count_entries(const std::string& folder) {
    std::error_code error;
    return std::distance(std::filesystem::directory_iterator(folder, error), {});
}

class Temporary_tree {
public:
    Temporary_tree() {
        std::string pattern = std::filesystem::temp_directory_path() / "editor_test_XXXXXX";
        path_ = ::mkdtemp(pattern.data());
    }
    ~Temporary_tree() {
        std::error_code ignored;
        std::filesystem::permissions(path_, std::filesystem::perms::owner_all, ignored);
        std::filesystem::remove_all(path_, ignored);
    }
    Temporary_tree(const Temporary_tree&) = delete;
    Temporary_tree& operator=(const Temporary_tree&) = delete;

    // The host path of the folder, or of something in it ("a/b").
    std::string path(const std::string& relative = "") const {
        return relative.empty() ? path_ : path_ + "/" + relative;
    }
    // Writes a file, with the folders above it. Returns its host path.
    std::string write(const std::string& relative, const std::string& contents = "") const {
        std::filesystem::create_directories(std::filesystem::path(path(relative)).parent_path());
        std::ofstream(path(relative), std::ios::binary) << contents;
        return path(relative);
    }
    std::string read(const std::string& relative) const {
        std::ifstream file(path(relative), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    bool has(const std::string& relative) const { return std::filesystem::exists(path(relative)); }

private:
    std::string path_;
};
