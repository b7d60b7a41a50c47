// Lists of the files of a folder, and the tree of its folders.
#pragma once

#include "toolkit/folder_source.h"
#include "toolkit/list_box.h"

class TFileListBox : public TListBox {
public:
    explicit TFileListBox(std::string name)
        : TFileListBox(Control_kind::list_box, std::move(name), false, false) {}

    const std::string& folder() const { return folder_; }
    const std::string& mask() const { return mask_; }
    // Each reads the folder anew.
    void set_folder(const std::string& folder);
    void set_mask(const std::string& mask);
    // Null for the source that all lists use.
    void set_source(Folder_source* source) { source_ = source; }

    // Reads the folder again. What was checked, selected or under the cursor still is, as far as it still
    // exists under the same name; where the folder cannot be read, a notice says so. Nothing fires.
    void Update() override;

    // The whole name of a line's file; of a line added by hand, as if it stood in the folder.
    std::string path(int index) const;
    // The paths of the selected lines, in their order.
    std::vector<std::string> selected_paths() const;

protected:
    TFileListBox(Control_kind kind, std::string name, bool has_check_marks, bool multi_select)
        : TListBox(kind, std::move(name), has_check_marks, multi_select) {}

private:
    std::string folder_;
    std::string mask_ = "*.*";
    Folder_source* source_ = nullptr;
    std::vector<Folder_entry> entries_;
    std::string listed_folder_; // what the entries are of
    std::string listed_mask_;
};

class TFileCheckListBox : public TFileListBox {
public:
    explicit TFileCheckListBox(std::string name)
        : TFileListBox(Control_kind::list_box, std::move(name), true, false) {}
};

// The same as a file manager shows it, with several lines to select.
class TShellListView : public TFileListBox {
public:
    explicit TShellListView(std::string name)
        : TFileListBox(Control_kind::shell_list, std::move(name), false, true) {}
};

class TShellTreeView : public TControl {
public:
    explicit TShellTreeView(std::string name) : TControl(Control_kind::shell_tree, std::move(name)) {
        set_takes_focus(true);
    }

    // The folder whose folders are shown; nothing is selected any more.
    const std::string& folder() const { return folder_; }
    void set_folder(const std::string& folder);
    void set_source(Folder_source* source) { source_ = source; }
    void Update() override { notify(Aspect::all_lines); }

    // The folders below a folder of the tree, read when asked for.
    std::vector<Folder_entry> folders_of(const std::string& path) const;
    // The path of the selected folder, empty for none.
    const std::string& selected_folder() const { return selected_folder_; }

    // What a user does.
    bool select(const std::string& path);

    std::function<void()> on_change; // the user selected another folder

private:
    std::string folder_;
    std::string selected_folder_;
    Folder_source* source_ = nullptr;
};
