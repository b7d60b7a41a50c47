// A file name that can act on the file: test it, delete it, and hand it to the desktop.
#pragma once

#include "names/file_name.h"
#include "temporal/date_time_64.h"

namespace TESK {

class Smart_file_name : public File_name {
public:
    using File_name::File_name;
    using File_name::operator=;
    Smart_file_name() = default;
    Smart_file_name(const File_name& name) : File_name(name) {}

    // Whether the file is there. A name that is not is tried without a "#" and the anchor behind it, as the
    // address of a place in a document has them.
    bool exists() const override;

    // open_with_verb("open").
    int open() override;
    // The desktop's verbs on the file: true, as a number, when the desktop has one and has begun.
    int edit() override;
    virtual bool print();
    virtual bool shell_open();

    // Starts the program that the desktop registers for this verb on files of this kind, or else shows the
    // file in the file manager. 0 when that has begun, otherwise a small error code. A program whose command
    // names firefox is not started: 1.
    virtual int open_with_verb(const char* verb);

    // False only when the file is there and may not be deleted.
    bool delete_file();

    // When the file was last changed; the present moment when it cannot be opened.
    Date_time_64 get_date_time() const;
};

} // namespace TESK
