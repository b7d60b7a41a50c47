// The desktop's own dialogs: messages and file names.
#include "desktop_qt/qt_desktop.h"
#include "desktop_qt/usual_pointer.h"
#include "toolkit/screen_language.h"

#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QApplication>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QTreeView>

namespace {

struct Button {
    QMessageBox::StandardButton shown;
    Modal_result result;
    const char* caption;
};

constexpr Button buttons[] = {
    {QMessageBox::Ok, Modal_result::ok, "&OK"},
    {QMessageBox::Cancel, Modal_result::cancel, "Cancel"},
    {QMessageBox::Yes, Modal_result::yes, "&Yes"},
    {QMessageBox::No, Modal_result::no, "&No"},
    {QMessageBox::Abort, Modal_result::abort, "&Abort"},
    {QMessageBox::Retry, Modal_result::retry, "&Retry"},
    {QMessageBox::Ignore, Modal_result::ignore, "&Ignore"},
};

QMessageBox::StandardButtons shown_buttons(Button_set set) {
    switch (set) {
    case Button_set::ok_cancel: return QMessageBox::Ok | QMessageBox::Cancel;
    case Button_set::yes_no: return QMessageBox::Yes | QMessageBox::No;
    case Button_set::yes_no_cancel: return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    case Button_set::abort_retry_ignore: return QMessageBox::Abort | QMessageBox::Retry | QMessageBox::Ignore;
    default: return QMessageBox::Ok;
    }
}

QMessageBox::Icon icon_of(Button_set set) {
    switch (set) {
    case Button_set::ok: return QMessageBox::Information;
    case Button_set::abort_retry_ignore: return QMessageBox::Warning;
    default: return QMessageBox::Question;
    }
}

// As Qt writes them: "Text (*.a *.b)", "Any (*)".
QStringList name_filters(const TFileDialog& asked) {
    QStringList filters;
    for (const File_kind& kind : asked.kinds()) {
        QStringList masks = to_qt(kind.masks);
        masks.replaceInStrings("*.*", "*");
        filters.append(to_qt(worded(from_qt(to_qt(kind.description).section('(', 0, 0).trimmed()))) + " (" +
                       masks.join(' ') + ")");
    }
    return filters;
}

// Qt's own dialog comes with columns that are too narrow for the times in them.
void give_room(QFileDialog& dialog) {
    constexpr QSize wanted(860, 540);
    dialog.resize(dialog.size().expandedTo(wanted));
    if (auto* const files = dialog.findChild<QTreeView*>("treeView"))
        files->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
}

} // namespace

QWidget* holder_of_dialog() {
    QWidget* const active = QApplication::activeWindow();
    return active && active->isVisible() ? active : nullptr;
}

Modal_result Qt_desktop::message_box(const Message& message) {
    const Usual_pointer usual;
    QWidget* const parent = holder_of_dialog();
    QMessageBox box(parent);
    box.setIcon(icon_of(message.buttons));
    box.setTextFormat(Qt::PlainText);
    // No line ends between a drive and its folders.
    box.setText(to_qt(message.text).replace(":\\", QString(":%1\\").arg(QChar(0x2060))));
    box.setWindowTitle(!message.title.empty() ? to_qt(message.title)
                       : parent               ? parent->windowTitle()
                                              : QString());
    box.setStandardButtons(shown_buttons(message.buttons));
    for (const Button& button : buttons) {
        if (QAbstractButton* const shown = box.button(button.shown))
            shown->setText(to_qt(worded(button.caption)));
        if (button.result == message.preset)
            box.setDefaultButton(button.shown);
    }
    const int pressed = box.exec();
    throw_kept();
    for (const Button& button : buttons)
        if (button.shown == pressed)
            return button.result;
    return Modal_result::cancel;
}

bool Qt_desktop::run_file_dialog(TFileDialog& asked) {
    const Usual_pointer usual;
    QFileDialog dialog(holder_of_dialog(), to_qt(asked.title));
    const bool saves = asked.purpose == TFileDialog::Purpose::save;
    dialog.setAcceptMode(saves ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog.setFileMode(asked.multi_select ? QFileDialog::ExistingFiles
                       : asked.must_exist ? QFileDialog::ExistingFile
                                          : QFileDialog::AnyFile);
    // The program asks itself before it replaces a file; drives are links, and names keep them.
    dialog.setOptions(QFileDialog::DontConfirmOverwrite | QFileDialog::DontResolveSymlinks);
    dialog.setNameFilters(name_filters(asked));
    dialog.setLabelText(QFileDialog::Accept, to_qt(worded(saves ? "Save" : "Open")));
    dialog.setLabelText(QFileDialog::Reject, to_qt(worded("Cancel")));
    dialog.setLabelText(QFileDialog::LookIn, to_qt(worded("Folder:")));
    dialog.setLabelText(QFileDialog::FileName, to_qt(worded("File name:")));
    dialog.setLabelText(QFileDialog::FileType, to_qt(worded("Files of type:")));
    if (asked.default_extension != "*")
        dialog.setDefaultSuffix(to_qt(asked.default_extension));
    if (!asked.initial_folder.empty())
        dialog.setDirectory(to_qt(host_path(asked.initial_folder)));
    if (!asked.file_name.empty()) {
        // A bare name is one in the folder just set.
        const bool is_bare = asked.file_name.find_first_of("\\/:") == std::string::npos;
        dialog.selectFile(to_qt(is_bare ? asked.file_name : host_path(asked.file_name)));
    }
    give_room(dialog);
    const bool accepted = dialog.exec() == QDialog::Accepted && !dialog.selectedFiles().isEmpty();
    throw_kept();
    if (accepted) {
        asked.files.clear();
        for (const QString& path : dialog.selectedFiles())
            asked.files.push_back(program_name(from_qt(path)));
        asked.file_name = asked.files.front();
    }
    return accepted;
}
