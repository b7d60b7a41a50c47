// The dialog in which a user says at the start which file to edit: one that was edited of late, any other, or
// a new one.
#pragma once

#include "editing/file_edit_bar.h"
#include "toolkit/file_list_box.h"
#include "toolkit/form.h"

#include <memory>

class Trecent_file_selector_form : public TForm {
public:
    Trecent_file_selector_form();
    ~Trecent_file_selector_form() override;

    // The name in choice, which outlives the dialog. A file that is `required` leaves no Cancel button; the
    // window can still be closed, which ends the dialog in the same way. `help_folder` is where the help of
    // the file bar is looked up; empty for none. `other_masks` are offered too, with "|" between them.
    void bind(TESK::Filtered_file_name& file_name, bool file_required, const std::string& help_folder,
              const std::string& other_masks = {});

    TShellListView& recent_shelllistview;
    TAutoFileEditBar& selected_fileeditbar;
    TLabel& required_label;
    TLabel& cancel_label;
    TButton& ok_button;
    TButton& cancel_button;

private:
    class Recent_documents;

    void recent_shelllistview_onitemdblclick();

    TESK::Filtered_file_name* file_name_ = nullptr;
    std::unique_ptr<Recent_documents> recent_documents_;
};
