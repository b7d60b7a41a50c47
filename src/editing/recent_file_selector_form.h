// The dialog in which a user says at the start which file to edit: one that was edited of late, any other, a
// new one, or the example that comes with the program.
#pragma once

#include "editing/file_edit_bar.h"
#include "toolkit/file_list_box.h"
#include "toolkit/form.h"

#include <functional>
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

    // Whether the file is to be made at once: the user asked for a new one, by its name and place.
    bool makes_new_file() const { return makes_new_file_; }

    // Puts the example in place and names its file; "" when that could not be, which has been said then.
    // Without it there is no button for it.
    std::function<std::string()> make_example;

    TShellListView& recent_shelllistview;
    TLabel& empty_label;
    TAutoFileEditBar& selected_fileeditbar;
    TLabel& required_label;
    TLabel& cancel_label;
    TButton& ok_button;
    TButton& open_button;
    TButton& new_button;
    TButton& example_button;
    TButton& cancel_button;

private:
    class Recent_documents;

    bool take_line();
    void take(const std::string& file_name);
    void recent_shelllistview_onitemdblclick() { take_line(); }
    void ok_button_onclick();
    void open_button_onclick();
    void new_button_onclick();
    void example_button_onclick();
    bool ask_for_file(TFileDialog& dialog) const;

    TESK::Filtered_file_name* file_name_ = nullptr;
    bool makes_new_file_ = false;
    std::unique_ptr<Recent_documents> recent_documents_;
};
