// The frame of the editors around a project's record, driven as a user would.
#pragma once

#include "editing/parameter_file_form.h"
#include "model/project_editor_parameters.h"
#include "platform/shell.h"
#include "support/failing_step.h"
#include "support/launcher_record.h"
#include "support/temporary_drives.h"
#include "support/temporary_user.h"
#include "support/test_desktop.h"
#include "translation/translation_files.h"

#include <sstream>

constexpr const char* unable =
    "Unable to save to parameter file (check that the file is not marked as read only)";
constexpr const char* save_title = "Save Tilverra project as";
constexpr const char* study = "C:\\work\\study.tvp";

// A record that needs no folder.
class Loose_record : public Common_parameters_data_record {
public:
    Loose_record() : Common_parameters_data_record(0, {1, 0, 0}, "loose") {}
    const char* get_type_description() const override { return "Loose record"; }
};

// What an editor of a project hands over, driven as a user would.
class Parameter_file_form : public testing::Test {
protected:
    Parameter_file_form() {
        drives.write("Suite/Tilverra/project_editor.exe");
        std::filesystem::create_directories(drives.host("work/study"));
        std::filesystem::copy_file(TEST_DATA "/irrigation_study.tvp", drives.host("work/study.tvp"));
    }

    // Whatever message a test meets has words in the languages that come with the program.
    void TearDown() override {
        if (current_screen_language != nullptr)
            return;
        const TESK::Translations_phrases& phrases = shipped_phrases();
        const auto names_something = [](const std::string& line) {
            return line.empty() || line.find(":\\") != std::string::npos ||
                   line.find(".tvp") != std::string::npos || line.starts_with("Tilverra project");
        };
        for (const Message& message : desktop.messages()) {
            std::istringstream lines(message.title + '\n' + message.text);
            for (std::string line; std::getline(lines, line);)
                for (const char* language : {"es", "fr", "ru"})
                    EXPECT_TRUE(names_something(line) || phrases.find_translation(line, language) != nullptr)
                        << language << ": " << line;
        }
    }
    static const TESK::Translations_phrases& shipped_phrases() {
        static TESK::Translations_phrases phrases;
        const TESK::Directory_name folder(platform::name_from_host_path(EXAMPLES "/translations"));
        TESK::load_translations(phrases, {folder}, {folder});
        return phrases;
    }

    bool bind(const std::string& file = study, bool given = true) {
        name = file;
        const bool is_bound = form.bind_to(editor(&panel, given));
        if (is_bound)
            form.show();
        return is_bound;
    }
    // The record with its controls, as the frame is handed it.
    Tparameter_file_form::Editor editor(TControl* shown, bool given = true) {
        return {.form = shown,
                .parameters = &record,
                .panel = shown,
                .file_name = &name,
                .file_given = given,
                .other_masks = "*.TVS_project",
                .file_selector = &selector,
                .help_folder = "",
                .user_settings_file = &settings_folder};
    }
    // Binds another frame to a file of the record, without a panel.
    bool bind_again(Tparameter_file_form& frame, const std::string& file = study) {
        name = file;
        return frame.bind_to(editor(nullptr));
    }
    // Binds the frame to a record that has no file yet.
    void bind_loose() {
        ASSERT_TRUE(form.bind_to({.parameters = &loose, .other_masks = "", .help_folder = ""}));
        form.show();
    }
    void describe(const std::string& text) { retype(form.edit_description, text); }

    // Messages that the frame asks something with.
    struct Question {
        std::string title;
        std::string text;
        Modal_result answer;
    };
    static Question failing(Modal_result answer, const std::string& reason = "") {
        return {"Unable to save", unable + reason, answer};
    }
    static Question replacing(const std::string& file, Modal_result answer) {
        return {"File already exists", "Replace the existing file with this name:\n" + file, answer};
    }
    static Question leaving(Modal_result answer) {
        return {"Unsaved changes", "Save the changes to C:\\work\\study.tvp?", answer};
    }
    void expect(const Question& question) {
        desktop.expect_message(question.title, question.text, question.answer);
    }
    // Saves under the name that is chosen, with the questions that follow then.
    void save_as(const std::string& file, const std::vector<Question>& questions = {}) {
        desktop.expect_file_dialog(save_title, {file});
        for (const Question& question : questions)
            expect(question);
        EXPECT_TRUE(form.save_as_button.click());
        EXPECT_TRUE(desktop.script_done());
    }
    // What is asked when another program has changed a file that was changed here too.
    void expect_conflict(const std::string& file, Modal_result answer) {
        desktop.expect_message("File changed on disk",
                               "Another program has changed this file since it was opened:\n" + file +
                                   "\nReplace it by what is shown here? ([No] loads what is there, and gives "
                                   "up what was changed here)",
                               answer);
    }
    std::string saved(const std::string& path) const { return drives.read(path); }
    bool has_line(const std::string& path, const std::string& line) const {
        return drives.read(path).find(line + "\r\n") != std::string::npos;
    }

    Temporary_user user;
    Temporary_drives drives;
    Launcher_record launcher;
    Test_desktop desktop;
    TESK::File_name program{"C:\\Suite\\Tilverra\\project_editor.exe"};
    TESK::Application_data_directory settings_folder{program};
    Tilverra_project_editor_parameters record{"C:\\Suite\\Tilverra\\tilverra_5.exe"};
    Loose_record loose;
    TVP_filename name{"noname"};
    Trecent_file_selector_form selector;
    TPanel panel{"panel"};
    Tparameter_file_form form{program};
};
