// A text file that lies beside a record, such as its notes, edited in a memo.
#pragma once

#include "names/smart_file_name.h"
#include "platform/write_result.h"
#include "toolkit/edit.h"

class Companion_text {
public:
    // The memo outlives this.
    explicit Companion_text(TMemo& memo);

    // Shows the file; one that is not there shows nothing. A file that cannot be read is shown as nothing
    // and cannot be edited, so that it is never written over. The memo is not modified afterwards.
    void load(const TESK::Smart_file_name& file);

    // Writes what the memo shows, with the line ends of the suite and in the encoding that the file had:
    // UTF-8 where it was that, otherwise code page 1252. The folder must be there. The memo is no longer
    // modified when the disk was reached.
    platform::Write_result save(const TESK::Smart_file_name& file);

    bool modified() const { return memo_.modified() && !memo_.read_only(); }

private:
    void set_encoding(bool is_utf8);

    TMemo& memo_;
    bool is_utf8_ = false;
};
