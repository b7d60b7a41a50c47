// Each call of the system that an operation makes on files fails once, with each kind of error: what is found
// afterwards is the old or the new, whole, and a failure is told.
#include "editing/edited_file.h"
#include "model/project_editor_parameters.h"
#include "operations/scenario_reset.h"
#include "platform/file_writer.h"
#include "platform/files.h"
#include "platform/interrupted_save.h"
#include "records/vv_file.h"
#include "support/temporary_drives.h"
#include "toolkit/headless_desktop.h"

#include <cerrno>
#include <functional>
#include <gtest/gtest.h>
#include <set>
#include <utility>

namespace fs = std::filesystem;
using namespace platform;

namespace {

// With the bytes that a write has written before; one of them makes a short write.
constexpr std::pair<int, std::size_t> failures_of_a_call[] = {{ENOSPC, 0}, {ENOSPC, 1}, {EIO, 0},
                                                              {EACCES, 0}, {EMFILE, 0}, {EINTR, 0}};

// A user who lets everything be replaced, and gives up what fails.
class Obliging_desktop : public Headless_desktop {
public:
    Obliging_desktop() : Headless_desktop([](const std::string& fault) { ADD_FAILURE() << fault; }) {}
    Modal_result message_box(const Message& message) override {
        return message.buttons == Button_set::yes_no ? Modal_result::yes : Modal_result::abort;
    }
};

class Failing_calls : public testing::Test {
protected:
    // All files of c:, with their contents. Unfinished saves are of no account.
    std::set<std::string> picture() const {
        std::set<std::string> lines;
        for (const auto& entry : fs::recursive_directory_iterator(drives.host()))
            if (entry.is_regular_file() && entry.path().string().find(".~saving-") == std::string::npos)
                lines.insert(entry.path().string() + "=" +
                             drives.read(entry.path().lexically_relative(drives.host())));
        return lines;
    }

    // The operation tells whether it succeeded. `arrange` puts everything back before each try. What is found
    // after a failure is what `arrange` made or what a success makes, and nothing is told to have worked that
    // has not.
    void fail_each_call(const std::function<void()>& arrange, const std::function<bool()>& operation) {
        arrange();
        const std::set<std::string> old = picture();
        ASSERT_TRUE(operation());
        const std::set<std::string> success = picture();
        std::size_t failures = 0;
        for (const auto& [error, after_bytes] : failures_of_a_call) {
            bool has_failed = true;
            for (std::size_t call = 1; has_failed; ++call) {
                arrange();
                bool is_done = false;
                {
                    File_faults faults;
                    faults.fail_call(call, error, after_bytes);
                    is_done = operation();
                    has_failed = faults.call_has_failed();
                }
                const std::set<std::string> found = picture();
                EXPECT_TRUE(found == success || (!is_done && found == old))
                    << "error " << error << " at call " << call << (is_done ? ", told as done" : "");
                failures += is_done ? 0 : 1;
            }
        }
        EXPECT_GT(failures, 10U);
    }

    static bool save(const char* name, const std::string& description) {
        Tilverra_project_editor_parameters project("C:\\model.exe");
        project.description = description;
        TESK::VV_file file(name);
        return file.set(project) && file.get_last_write().ok();
    }

    Temporary_drives drives;
};

} // namespace

TEST_F(Failing_calls, of_a_save_over_a_file_of_a_first_one_and_of_one_with_several_hard_links) {
    const auto write_old = [&] {
        fs::remove(drives.host("twin"));
        drives.write("study.tvp", "[project]\r\ndescription=old\r\n[other]\r\nkey=kept\r\n");
    };
    const std::pair<const char*, std::function<void()>> cases[] = {
        {"over a file", write_old},
        {"first", [&] { fs::remove(drives.host("study.tvp")); }},
        {"with several hard links",
         [&] {
             write_old();
             fs::create_hard_link(drives.host("study.tvp"), drives.host("twin"));
         }},
    };
    for (const auto& [what, arrange] : cases) {
        SCOPED_TRACE(what);
        fail_each_call(arrange, [] { return save("study.tvp", "new"); });
    }
    EXPECT_FALSE(interrupted_save("study.tvp"));
}

// As the form does it: into no folder, and into one of which some files are replaced.
TEST_F(Failing_calls, of_a_save_under_another_name) {
    const Obliging_desktop desktop;
    drives.write("old/study.tvp", "[project]\r\ndescription=old\r\n");
    drives.write("old/study/notes.txt", "notes");
    drives.write("old/study/Scenarios/a.tvn", "[scenario]\r\n");
    Tilverra_project_editor_parameters project("C:\\model.exe");
    for (const bool is_there : {false, true}) {
        TVP_filename name("noname");
        std::optional<Edited_file> file;
        fail_each_call(
            [&] {
                fs::remove_all(drives.host("new"));
                if (is_there) {
                    for (const char* taken : {"study.tvp", "study/notes.txt", "study/Scenarios/a.tvn"})
                        drives.write(std::string("new/") + taken, "of another");
                    fs::create_hard_link(drives.host("new/study/notes.txt"), drives.host("new/twin"));
                }
                name.set("C:\\old\\study.tvp");
                file.emplace().bind(project, &name, true);
                file->choose(nullptr, "", "");
                file->load();
                file->dialog.file_name = "C:\\new\\study.tvp";
            },
            [&] { return file->save() == Save_outcome::saved; });
    }
}

TEST_F(Failing_calls, of_a_reset) {
    drives.write("source.tvn", "[CO2]\r\nactual=400\r\n");
    Ticked_reset_boxes ticked;
    ticked[1] = true;
    fail_each_call(
        [&] { drives.write("target.tvn", "[scenario]\r\n[CO2]\r\nactual=300\r\n[other]\r\nkey=kept\r\n"); },
        [&] {
            return reset_scenario(TESK::File_name("C:\\source.tvn"), TESK::File_name("C:\\target.tvn"),
                                  ticked)
                .ok();
        });
}
