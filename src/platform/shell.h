// What the programs of the suite ask of the user's desktop: the verbs on a file, the trash, the user's
// folders, recent documents and the state of the network. All names are the suite's. Nothing here waits for
// another program, and without a desktop session each answer is a false or an error code. A test replaces the
// shell, or some of its operations, for a scope.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

// The numbers of the special folders.
constexpr int folder_personal_documents = 5;
constexpr int folder_recent_documents = 8;
constexpr int folder_local_application_data = 28;

class Shell {
public:
    virtual ~Shell() = default;

    // Does what the desktop has for the verb ("open", "edit", "print", in any case) on a file, a folder or,
    // to open it, a web address. Above 32 it has begun; otherwise one of the codes of process.h:
    // result_no_association when the verb is another or the host has no tool for it. Show modes have no use
    // on this host.
    virtual int shell_execute(const std::string& verb, const std::string& name, int show_mode);

    // The command for a file type (an extension with its point) and a verb, with "%1" for the file's name;
    // nothing when the host has no tool for the verb, and for the type "".
    virtual std::optional<std::string> registered_command(const std::string& extension,
                                                          const std::string& verb);

    // Moves a file, a folder with all that is in it, or a link to the trash, from which the user's file
    // manager can restore it. False, with everything still in its place, when that cannot be.
    virtual bool recycle(const std::string& name);

    // The same for many, at less cost. `progress` is told after each how many are in the trash, and may say
    // stop by false. Gives whether each is in the trash; those behind a stop are not.
    virtual std::vector<bool> recycle_all(const std::vector<std::string>& names,
                                          const std::function<bool(std::size_t done)>& progress);

    // Deletes a file, a folder with all that is in it, or a link. False when nothing is there, or when
    // something of it is still there afterwards. Links in a folder are deleted, never what they point to.
    virtual bool delete_permanently(const std::string& name);

    // The full name of a special folder; "" for other numbers and where no drive holds it. Only the folder of
    // recent documents is sure to exist.
    virtual std::string special_folder(int number);

    // Notes that a file was in use. Its shortcut is named "<file name>.lnk"; a file whose name is all
    // extension gets the name of its folder in front, and one of several of a name a number. A file that is
    // gone is not noted.
    virtual void add_to_recent_documents(const std::string& name);

    // The full names of the shortcuts in the folder of recent documents, the newest first; at most 50.
    virtual std::vector<std::string> recent_documents();

    // The full name of what a shortcut (a symbolic link) leads to; nothing when that is gone, or when the
    // name is no shortcut.
    virtual std::optional<std::string> resolve_shortcut(const std::string& name);

    // Whether an interface to a network, other than that of the host to itself, is up and has an address.
    // Nothing is sent.
    virtual bool is_network_connected();
};

// The shell in use.
Shell& shell();

// Has another shell in use while it lives.
class Shell_guard {
public:
    explicit Shell_guard(Shell& replacement);
    Shell_guard(const Shell_guard&) = delete;
    Shell_guard& operator=(const Shell_guard&) = delete;
    ~Shell_guard();

private:
    Shell* previous_;
};

} // namespace platform
