// The page that leads to a program's documentation, on this computer and on the web.
#pragma once

#include "toolkit/button.h"
#include "toolkit/label.h"
#include "toolkit/page_control.h"
#include "trees/program_directory.h"

#include <array>
#include <functional>
#include <memory>
#include <string>

class Documentation_page {
public:
    // The program's file tells where its documentation lies.
    Documentation_page(const TESK::File_name& program_file, TTabSheet& sheet);

    // The documentation on the web mirrors the folders below `local_root` under `url_root`; null leaves none.
    void set_web(const char* url_root, const char* local_root);
    // The page of the documentation by its place in it ("project\page.htm"): the local file where it exists,
    // otherwise its address on the web; "" where there is neither.
    std::string help_lookup(const std::string& page) const;
    // Opens that page, when there is one.
    void view_document(const std::string& page) const;
    // Has the desktop show the user guide: the program's help page or, beside the sources that it was built
    // from, the text that this is made of. False when neither is there, or nothing can show it.
    bool open_guide();
    // Shows what there is now.
    void update_documentation_buttons();

    std::function<void()> on_new_texts; // captions were set that may have to be translated

    TLabel& documentation_label_installed;
    TLabel& label_where_documentation_lies; // shown while there is none
    TLabel& documentation_web_label;
    // In the order help, FAQ, manual, tutorial.
    std::array<TButton*, 4> documentation_buttons{};
    std::array<TButton*, 4> documentation_web_buttons{};

private:
    TESK::Program_directory program_directory_;
    std::unique_ptr<TESK::Documentation_directory> web_;
};
