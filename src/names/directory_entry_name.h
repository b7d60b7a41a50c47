// A file or directory name: a text that knows where its drive, path, name and extension begin. A backslash
// separates, a forward slash is understood, and the last point in the text begins the extension.
#pragma once

#include "foundation/item.h"
#include "foundation/ustring.h"

#include <cstdint>
#include <string>

namespace TESK {

class Directory_name;

class Directory_entry_name : public Ustring, public Association {
public:
    Directory_entry_name() = default;
    Directory_entry_name(const Directory_entry_name&) = default;
    Directory_entry_name& operator=(const Directory_entry_name&) = default;
    Directory_entry_name& operator=(const char* name) { return set(name); }
    Directory_entry_name& operator=(const std::string& name) { return set(name); }

    // Each replaces the whole text. A null name is the empty text; a wide one gives its low bytes.
    virtual Directory_entry_name& set(const char* name);
    virtual Directory_entry_name& set(const wchar_t* name);
    virtual Directory_entry_name& set(const std::string& name);

    // Replaces all that stands before the name; the name and its extension stay.
    virtual void set_path(const Directory_name& path);

    // Replaces the extension, which may be given with or without its point; "" removes it. Null is "".
    virtual void set_ext(const char* ext);

    // The name with or without its extension. The text stands until the next call of this or of get_ext().
    virtual const Ustring& get_name(bool with_extension) const;

    // Finds the parts anew. The set family does it by itself; a text changed in another way is not noticed.
    virtual void decompose() const;

    // What the desktop does with the entry: nothing here, 0.
    virtual int open() { return 0; }
    virtual int edit() { return 0; }

    // Shows the entry in the desktop's file manager: the folder itself, or the folder that holds it with the
    // entry selected. True.
    virtual bool explore(bool select);

    virtual bool exists() const;

    // The whole text when show_full_path, otherwise the name, with its extension when show_extension.
    std::string& label_to(std::string& buffer) const override;
    bool is_selected() const override { return (marks & selected_mark) != 0; }
    bool is_checked() const override { return (marks & checked_mark) != 0; }
    virtual bool toggle_selected();
    virtual bool toggle_checked();
    bool set_selected(bool selected) override;
    bool set_checked(bool checked) override;
    // The text and a line end.
    std::ostream& write(std::ostream& out) const override;

    using Association::compare;
    const char* get_key() const override { return c_str(); }

    // Replaces the drive, which may be given with or without its colon.
    void set_drive(const char* drive);
    // Replaces the name, and keeps the extension.
    void set_name(const char* name);
    // Replaces the name and the extension.
    void set_name_ext(const char* name);

    // All that stands before the name, with or without a backslash at its end.
    void get_path(Directory_name& out, bool strip_separator) const;
    // The same without the drive; `out` stays as it was when the name has no path.
    void get_path_no_drive(Ustring& out) const;

    // The extension with its point, or "". The form without arguments stands until the next call of it or of
    // get_name().
    Ustring& get_ext(Ustring& out) const;
    const Ustring& get_ext() const;
    // Whether that is the extension, ignoring case; the point may be left out.
    bool has_ext(const char* ext) const;

    // Whether the text holds a backslash or, with `need_drive`, begins with a drive.
    bool is_qualified(bool need_drive) const;

    // Makes a relative name absolute, by the current directory. A name that begins with a backslash or a
    // drive is absolute. False for a name that begins with "<", which is no path.
    bool qualify();

    // Makes the name relative to a directory: what follows that at its head or, on the same drive, the way up
    // from it and down again. A name on another drive becomes absolute.
    void make_relative_to(const Directory_name& base);

    // Deletes the entry, with all that is in it; or moves it to the trash, unless `permanently`. False when
    // it is not there, or could not be taken away.
    bool recycle(bool permanently);

    bool show_full_path = false;
    bool show_extension = false;

protected:
    // Where the parts begin. A text changed behind the back of the name cannot lead a position out of it.
    std::size_t name_start() const;
    std::size_t ext_start() const;

private:
    static constexpr std::uint8_t selected_mark = 1;
    static constexpr std::uint8_t checked_mark = 2;

    bool set_mark(std::uint8_t mark, bool on);
    void need_positions() const;

    mutable bool decomposed = false;
    mutable std::size_t drive_pos = npos;
    mutable std::size_t path_pos = npos;
    mutable std::size_t name_pos = npos;
    mutable std::size_t ext_pos = npos;
    mutable Ustring buffer;
    std::uint8_t marks = 0;
};

} // namespace TESK
