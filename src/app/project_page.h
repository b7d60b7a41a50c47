// What the pages of the project form share: the form that they are the pages of, and the project it holds. A
// page's files hold its controls, what these are bound to, and what they do.
#pragma once

#include "editing/file_edit_bar.h"
#include "editing/page_parts.h"
#include "operations/change_backups.h"
#include "operations/operation_outcome.h"
#include "operations/project_workspace.h"
#include "toolkit/file_list_box.h"

#include <optional>
#include <string>
#include <vector>

class TTilverra_project_form;

namespace TVS {
class Tilverra_Directory;
}

class Project_page {
public:
    Project_page(const Project_page&) = delete;
    Project_page& operator=(const Project_page&) = delete;

protected:
    // The form need not be made yet; it is only kept.
    explicit Project_page(TTilverra_project_form& project_form) : form(project_form) {}
    ~Project_page() = default;

    // Whether there is a project. Without one nothing else here may be asked, and handlers do nothing.
    bool has_project() const;
    Project_workspace& workspace() const;
    Tilverra_project_editor_parameters& record() const;

    // Binds a control, and has update_bound_controls() bring it up to date.
    template <class Control, class Value>
    void bind_control(Control& control, Value& value) {
        control.bind_to(&value, nullptr);
        bound_controls_.push_back(&control);
    }
    // The same for a file, which `program` edits; null for none.
    void bind_file(TAutoFileEditBar& bar, TESK::Filtered_file_name& file, const char* caption,
                   const TESK::File_name* program);
    void forget_bound_controls() { bound_controls_.clear(); }
    void update_bound_controls();

    // Prepares to put the files (full names) aside that an operation will replace or take away. Where that is
    // more than the project keeps, asks whether to go on without; false when the user does not, and where the
    // files are of scenarios that are being run.
    bool prepare_backups(const std::vector<std::string>& files, std::optional<Change_backups>& backups) const;

    // Shows tables (.dbf, full names): one at once, of several the one that the user chooses. The status line
    // tells the `failure` to list them, where there is one, and without any table says `none`.
    void show_tables(const std::vector<std::string>& files, const std::string& failure, const char* none);

    TTilverra_project_form& form;

private:
    std::vector<TControl*> bound_controls_;
};

// What operations take for backups: null for none.
inline Change_backups* pointer_to(std::optional<Change_backups>& backups) {
    return backups ? &*backups : nullptr;
}

// Lets what changed be painted. False once the user closes the program.
bool paint_pending();

// The first of the files that an operation could not deal with, with the reasons, in the user's language.
std::string told_failures(const Operation_outcome& outcome);

// Tells the user what an operation could not do; nothing when it did all.
void show_failures(const Operation_outcome& outcome, const std::string& title);

// Points the list at a folder; one that it shows already is not read again.
void show_folder(TFileListBox& list, const std::string& folder);

// Whether the control and all that holds it is there and enabled, in front or not.
bool is_offered(const TControl& control);

// What a note says of the scenario that is to serve as template: by its colour, and by a sign.
void show_verdict(TLabel& note, bool is_good);

// The suite's programs for projects; null without a suite.
TVS::Tilverra_Directory* suite_programs();
