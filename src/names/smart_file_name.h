// The name of a file that can be looked for, deleted, and handed to the programs of the user's desktop.
#pragma once

#include "names/file_name.h"
#include "temporal/date_time_64.h"

namespace TESK {

class Smart_file_name : public File_name {
public:
    using File_name::File_name;
    using File_name::operator=;

    // Whether anything of the name is there; if not, and there is a "#" behind the first character, whether
    // what stands before that is: "help.htm#topic" is an address in "help.htm".
    bool exists() const override;

    // open_with_verb("open").
    int open() const override;

    // Each has the desktop do what the name of the operation says; true when that has begun.
    int edit() const override;
    virtual bool print() const;
    virtual bool shell_open() const;

    // Starts the program that the desktop has for the verb and the type of the file or, where it has none,
    // shows the file in the file manager. 0 on success, otherwise an error code. A command that holds
    // "firefox" is not started: 1.
    virtual int open_with_verb(const char* verb) const;

    // False when the file is still there afterwards: it is write-protected, for instance. A file that is not
    // there counts as deleted.
    bool delete_file() const;

    // The time of the file's last change, to two seconds; the present moment when it cannot be read.
    Date_time_64 get_date_time() const;
};

} // namespace TESK
