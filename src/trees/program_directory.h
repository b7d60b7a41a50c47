// The folders of one program: where its documentation and its settings lie, beside the program's own file.
#pragma once

#include "names/smart_directory_name.h"
#include "names/smart_file_name.h"

#include <array>
#include <memory>
#include <optional>

namespace TESK {

// The folder that is named after a program's file and lies beside it.
class Adjunct_directory : public Smart_directory_name {
public:
    explicit Adjunct_directory(const File_name& program);
    // The program is then the folder's name with the extension "exe".
    explicit Adjunct_directory(const Directory_name& folder);

    // Makes `result` the file of this folder whose name without extension is the stem, in this case; of
    // several, the last. True when there is one, or when `result` exists as it is.
    bool find_file_by_stem(const char* stem, Smart_file_name& result) const;

    File_name program_file;
};

enum class Documentation_topic { tutorial, help, manual, faq, history };
constexpr int documentation_topic_count = 5;

// A program's documentation: a folder and a page for each topic, found when they are first asked for and
// remembered whatever becomes of the disk.
class Documentation_directory : public Adjunct_directory {
public:
    using Adjunct_directory::Adjunct_directory;

    const Smart_directory_name& get_directory(Documentation_topic topic);

    // The page of the topic: the file of this folder named after it, or "index.html" or "index.htm" in the
    // topic's folder; where none of them is there, the topic's name with "htm" in this folder.
    const Smart_file_name& get_page(Documentation_topic topic);

    // Turns a local directory below `old_root` into one on the web: the root is replaced, and backslashes
    // behind it become slashes. A directory elsewhere stays. All topics are found anew.
    void rebase_to_URL(const char* new_root, const char* old_root);

    // Forgets what was found.
    virtual void reset();

private:
    Smart_file_name find_page(Documentation_topic topic);

    std::array<std::optional<Smart_directory_name>, documentation_topic_count> directories_;
    std::array<std::optional<Smart_file_name>, documentation_topic_count> pages_;
};

class Application_directory;
class Suite_directory;

class Program_directory : public Adjunct_directory {
public:
    // With `find_ini`, another file named like "default.ini" is taken where that one is not there.
    explicit Program_directory(const File_name& program, bool find_ini = false);
    ~Program_directory() override;

    // Whether default_ini exists or a file of the folder, whose name without extension is "default.ini", has
    // taken its place.
    virtual bool find_default_ini();

    // The program's folder and the folder above that, as they are first asked for.
    Application_directory& get_application();
    Suite_directory& get_suite();

    virtual void reset();

    Documentation_directory documentation;
    Smart_file_name default_ini;

private:
    std::unique_ptr<Application_directory> application_;
    std::unique_ptr<Suite_directory> suite_;
};

} // namespace TESK

// The program's own folders; null before the start.
extern TESK::Program_directory* program_directory;
