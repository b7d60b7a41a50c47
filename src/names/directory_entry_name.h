// The name of a file or a folder: a text that knows where its drive, path, name and extension begin, and the
// operations on these parts.
//
// A backslash separates, a forward slash does too, "X:" is a drive. The last point of the whole text begins
// the extension, unless it is the first character: "C:\a.b\c" has the name "c" and the extension ".b\c".
//
// The text and the positions of its parts are kept in step by assignment and by the operations of this class,
// not by those of std::string. Positions that no longer fit the text are harmless.
#pragma once

#include "foundation/item.h"
#include "foundation/ustring.h"

#include <cstddef>
#include <cstdint>
#include <ostream>
#include <string>
#include <string_view>

namespace TESK {

class Directory_name;

class Directory_entry_name : public Ustring, public Association {
public:
    // Where the parts begin, as long as `decomposed` is true.
    mutable bool decomposed = false;
    mutable std::size_t drive_pos = npos; // 0 with a colon in the text, npos without
    mutable std::size_t path_pos = npos;  // behind the colon, or 0; npos without a separator
    mutable std::size_t name_pos = npos;  // behind the last separator or colon
    mutable std::size_t ext_pos = npos;   // the point of the extension, or the length of the text

    bool show_full_path = false; // label_to() gives the whole text
    bool show_extension = false; // label_to() gives the name with its extension

    Directory_entry_name(const Directory_entry_name&) = default;
    Directory_entry_name& operator=(const Directory_entry_name&) = default;
    Directory_entry_name& operator=(const char* name) { return set(name); }
    Directory_entry_name& operator=(const std::string& name) { return set(name); }

    // Replaces the whole text. Null counts as the empty text; of wide characters the low bytes are taken.
    virtual Directory_entry_name& set(const char* name);
    virtual Directory_entry_name& set(const wchar_t* name);
    virtual Directory_entry_name& set(const std::string& name);

    // Replaces all that stands before the name.
    virtual void set_path(const Directory_name& path);

    // Replaces the extension, and whatever stands behind its point. The point of `ext` may be left out; ""
    // takes the extension off. A text that begins with "<" stands for no file and is left as it is.
    virtual void set_ext(const char* ext);

    // The name, by a reference that is good until the next call of get_name() or get_ext(). Without the
    // extension, when that begins before the name, the name to its end.
    virtual const Ustring& get_name(bool with_extension) const;

    // Finds the parts in the text anew.
    virtual void decompose() const;

    // Opens or edits what the name stands for, where the kind of name can; 0 where it cannot.
    virtual int open() const { return 0; }
    virtual int edit() const { return 0; }

    // Shows the entry in the desktop's file manager: the folder itself, or selected in the folder that holds
    // it. True, whatever comes of it.
    virtual bool explore(bool select) const;

    virtual bool exists() const;

    // The whole text, or the name without or with its extension, as the two flags say.
    std::string& label_to(std::string& buffer) const override;

    bool is_selected() const override { return (marks & selected_mark) != 0; }
    bool is_checked() const override { return (marks & checked_mark) != 0; }
    // Turns the mark over and tells the new state.
    virtual bool toggle_selected();
    virtual bool toggle_checked();
    // Each sets the mark, as the lists on a screen do. True.
    bool set_selected(bool selected) override;
    bool set_checked(bool checked) override;

    // The text and a line end.
    std::ostream& write(std::ostream& out) const override;

    // The whole text, by which a list finds and compares names.
    const char* get_key() const override { return c_str(); }
    std::string_view get_key_view() const override { return *this; }
    using Association::compare;

    // Replaces the drive; a missing colon is added. "" takes the drive off.
    void set_drive(const char* drive);

    // Replaces the name and keeps the extension.
    void set_name(const char* name);

    // Replaces the name and the extension.
    void set_name_ext(const char* name);

    // All that stands before the name, with its last separator, or without that when it is a backslash.
    void get_path(Directory_name& out, bool strip_separator) const;

    // The path without the drive. A name without a separator leaves `out` as it is.
    std::string& get_path_no_drive(std::string& out) const;

    // The extension with its point, or "". The reference is good as that of get_name() is.
    const Ustring& get_ext() const;
    std::string& get_ext(std::string& out) const;

    // Whether the extension is `ext`, with or without its point; case does not count.
    bool has_ext(const char* ext) const;

    // Whether the text has a drive, or, when that is not needed, at least a backslash.
    bool is_qualified(bool need_drive) const;

    // Makes the name absolute from the current directory, each "..\" at its beginning one level up. While it
    // runs it can change the current directory of the process. False, with nothing changed, for a text that
    // begins with "<"; true when the name is absolute now or was it before.
    bool qualify();
    // The same, but in a drive's root, where the current directory ends in a separator, no second one is put
    // behind it: for the names of records, which are shown and compared.
    bool qualify_in_root();

    // Makes the name relative to the folder, whose text is absolute and ends in no separator. A name on
    // another drive becomes absolute. The head of the text is compared without regard to components: "bc\x"
    // is what "C:\abc\x" is in "C:\a".
    void make_relative_to(const Directory_name& base);

    // Moves the entry to the user's trash, or deletes it for good: a folder with all that is in it. False
    // when it is not there or still there afterwards.
    bool recycle(bool permanently) const;

protected:
    Directory_entry_name() = default;

    static constexpr std::uint8_t selected_mark = 1;
    static constexpr std::uint8_t checked_mark = 2;

    mutable Ustring buffer; // what get_name() and get_ext() refer to
    std::uint8_t marks = 0;

private:
    void need_positions() const;
    std::string before_name() const;
    std::string name_with_extension() const;
    std::string extension() const;
    std::string path_without_drive() const;
};

} // namespace TESK
