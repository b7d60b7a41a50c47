// The desktop drawn with Qt Widgets. One exists while the program runs, made after QApplication.
#pragma once

#include "desktop_qt/view.h"
#include "toolkit/desktop.h"

class Qt_desktop : public Desktop, public View_context {
public:
    Qt_desktop() = default;
    ~Qt_desktop() override;

    void show(TForm& form) override;
    void run_modal(TForm& form) override;

    std::string host_path(const std::string& name) const override { return name; }
    std::string program_name(const std::string& path) const override { return path; }
    void keep_exception(std::exception_ptr exception) override;

private:
    void throw_kept();

    std::exception_ptr kept_;
};
