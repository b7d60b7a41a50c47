// Programs that are killed while they save, at random moments: what is found afterwards is the old or the
// new, whole. TVS_KILLS says how often each kind of save is killed; a few times by default.
#include "model/tilverra_scenario.h"
#include "names/recycling.h"
#include "platform/file_steps.h"
#include "platform/files.h"
#include "platform/interrupted_save.h"
#include "platform/listing.h"
#include "platform/shell.h"
#include "records/vv_file.h"
#include "records/vv_text.h"
#include "support/temporary_drives.h"
#include "tables/dbase_data_source.h"
#include "trees/user_settings.h"

#include <csignal>
#include <gtest/gtest.h>
#include <random>
#include <sys/wait.h>
#include <unistd.h>

namespace fs = std::filesystem;
using namespace platform;

namespace {

constexpr std::size_t usual_kills = 8;

// A row of a table.
struct Row : TESK::Data_record {
    explicit Row(std::size_t number) : Data_record(""), text("row " + std::to_string(number)) {}
    void expect_structure(bool) override { expect_string("TEXT", text, 20); }
    TESK::Ustring text;
};

class Killed_saves : public testing::Test {
protected:
    // Has a program do the work over and over until it is killed, and then looks at what is there. The work
    // is told how often it has been done. It is killed a random moment after the file, where one is named,
    // has begun to change; with "" by a fault of its own.
    template <class Work, class Check>
    void kill_often(Work work, Check check, const char* watched = nullptr) {
        const useconds_t longest = watched != nullptr ? 300 : 40'000;
        const bool kills_itself = watched != nullptr && *watched == 0;
        const char* asked = std::getenv("TVS_KILLS");
        const std::size_t kills = asked != nullptr     ? std::strtoul(asked, nullptr, 10)
                                  : watched != nullptr ? 2 * usual_kills
                                                       : usual_kills;
        const unsigned seed = std::random_device()();
        SCOPED_TRACE("seed " + std::to_string(seed));
        std::mt19937 random(seed);
        for (std::size_t kill_number = 0; kill_number < kills && !HasFailure(); ++kill_number) {
            const pid_t program = fork();
            if (program == 0)
                for (std::size_t round = 0;; ++round)
                    work(round);
            if (watched != nullptr && !kills_itself)
                wait_for_change(drives.host(watched));
            if (!kills_itself) {
                usleep(
                    std::uniform_int_distribution<useconds_t>(watched != nullptr ? 0 : 500, longest)(random));
                kill(program, SIGKILL);
            }
            waitpid(program, nullptr, 0);
            check();
        }
        // The next save into the folder clears away what was left.
        EXPECT_TRUE(write_file("after", "x", Durability::quick).ok());
    }

    static void wait_for_change(const fs::path& file) {
        const auto before = fs::last_write_time(file);
        for (int i = 0; i < 100'000 && fs::last_write_time(file) == before; ++i)
            usleep(1);
    }

    Temporary_drives drives;
    Environment_guard config{"XDG_CONFIG_HOME", drives.host("config")};
};

} // namespace

// A record of two kinds of contents, one after the other.
TEST_F(Killed_saves, of_a_record) {
    Tilverra_scenario records[2];
    records[1].description = std::string(250, 'x');
    std::string texts[2];
    for (int i = 0; i < 2; ++i) {
        TESK::VV_text text;
        text.set(records[i]);
        texts[i] = text.text();
    }
    kill_often([&](std::size_t round) { TESK::VV_file("base.tvn").set(records[round % 2]); },
               [&] {
                   const Read_result found = read_file("base.tvn");
                   EXPECT_TRUE(found.outcome == Read_outcome::absent || found.contents == texts[0] ||
                               found.contents == texts[1])
                       << found.contents;
               });
}

TEST_F(Killed_saves, of_a_file_with_several_hard_links) {
    const std::string texts[] = {std::string(2'000'000, 'a'), std::string(1'500'000, 'b')};
    drives.write("file", texts[0]);
    fs::create_hard_link(drives.host("file"), drives.host("twin"));
    std::size_t damaged = 0;
    // In the middle of what it writes into the file.
    const auto save = [&](std::size_t round) {
        File_faults faults;
        faults.fail(Write_step::write_in_place, killed_there, std::random_device()() % texts[1].size());
        write_file("file", texts[(round + 1) % 2], Durability::durable);
    };
    kill_often(
        save,
        [&] {
            std::string found = drives.read("twin");
            if (found != texts[0] && found != texts[1]) {
                ++damaged;
                const auto interrupted = interrupted_save("twin");
                ASSERT_TRUE(interrupted);
                ASSERT_TRUE(restore("twin", *interrupted).ok());
                found = drives.read("twin");
            }
            EXPECT_TRUE(found == texts[0] || found == texts[1]) << found.size();
            EXPECT_FALSE(interrupted_save("twin"));
        },
        "");
    EXPECT_GT(damaged, 0U);
}

TEST_F(Killed_saves, of_new_files_in_bulk) {
    const std::string text(9000, 'x');
    fs::create_directory(drives.host("bulk"));
    kill_often(
        [&](std::size_t round) {
            write_file("bulk\\" + std::to_string(round) + ".tvn", text, Durability::quick);
        },
        [&] {
            for (const Folder_entry& entry : list_folder("bulk"))
                EXPECT_EQ(read_file("bulk\\" + entry.name).contents, text) << entry.name;
            EXPECT_TRUE(remove_tree("bulk") && make_folder("bulk"));
        });
}

TEST_F(Killed_saves, of_settings) {
    const TESK::Application_data_directory directory(TESK::File_name("C:\\Suite\\editor.exe"));
    const auto section = [](std::size_t number) { return "C:\\" + std::to_string(number) + ".tvp"; };
    std::size_t known = 0; // sections that are there for sure
    kill_often(
        [&](std::size_t round) {
            TESK::User_settings settings;
            settings.top = static_cast<std::int16_t>(known + round + 1);
            directory.save(settings, section(known + round));
        },
        [&] {
            for (std::size_t number = 0;; ++number) {
                TESK::User_settings settings;
                directory.load(settings, section(number));
                if (settings.top == 0) {
                    EXPECT_GE(number, known);
                    known = number;
                    break;
                }
                EXPECT_EQ(settings.top, static_cast<std::int16_t>(number + 1));
            }
            if (known > 100) {
                delete_file(directory.settings_file);
                known = 0;
            }
        });
}

TEST_F(Killed_saves, of_the_list_of_recent_files) {
    for (int i = 0; i < 60; ++i)
        drives.write(std::to_string(i) + ".tvp");
    for (int i = 0; i < 10; ++i)
        shell().add_to_recent_documents(std::to_string(i) + ".tvp");
    kill_often(
        [&](std::size_t round) { shell().add_to_recent_documents(std::to_string(round % 60) + ".tvp"); },
        [&] {
            // One of them may be on its way to the front.
            const std::vector<std::string> shortcuts = shell().recent_documents();
            EXPECT_GE(shortcuts.size(), 9U);
            for (const std::string& shortcut : shortcuts)
                EXPECT_TRUE(shell().resolve_shortcut(shortcut)) << shortcut;
        });
}

TEST_F(Killed_saves, of_the_trash) {
    constexpr int files = 40;
    const fs::path trash = drives.user_data() + "/Trash";
    kill_often(
        [&](std::size_t) {
            std::vector<std::string> names;
            for (int i = 0; i < files; ++i)
                write_file(names.emplace_back(std::to_string(i) + ".tvn"), "text", Durability::quick);
            TESK::recycle_all(names, false, nullptr);
        },
        [&] {
            // What has gone to the trash can be restored from there.
            if (fs::exists(trash / "files"))
                for (const auto& entry : fs::directory_iterator(trash / "files")) {
                    const std::string record =
                        trash / "info" / (entry.path().filename().string() + ".trashinfo");
                    std::ifstream in(record);
                    const std::string text{std::istreambuf_iterator<char>(in), {}};
                    EXPECT_TRUE(text.starts_with("[Trash Info]\nPath=") && text.ends_with('\n')) << record;
                    EXPECT_EQ(fs::file_size(entry.path()), 4U);
                }
            for (const Folder_entry& entry : list_folder("C:\\", "*.tvn"))
                EXPECT_EQ(read_file(entry.name).contents, "text");
            fs::remove_all(trash);
        });
}

TEST_F(Killed_saves, of_a_copied_folder) {
    for (int i = 0; i < 30; ++i)
        drives.write("from/sub " + std::to_string(i % 3) + "/" + std::to_string(i), std::string(3000, 'x'));
    fs::create_directory(drives.host("copies"));
    kill_often([&](std::size_t round) { copy_tree("from", "copies\\" + std::to_string(round)); },
               [&] {
                   for (const Folder_entry& copy : list_folder("copies")) {
                       std::size_t files = 0;
                       for (const auto& entry :
                            fs::recursive_directory_iterator(drives.host("copies/" + copy.name)))
                           files += entry.is_regular_file() && entry.file_size() == 3000 ? 1 : 0;
                       EXPECT_EQ(files, 30U) << copy.name;
                   }
                   EXPECT_TRUE(remove_tree("copies") && make_folder("copies"));
               });
}

// All of the one copy or all of the other; what one of them added goes again, and what a user has changed or
// made since the kill stays.
TEST_F(Killed_saves, of_a_folder_copied_over_another) {
    for (int i = 0; i < 40; ++i)
        for (const std::string folder : {"one", "two", "to"})
            drives.write(folder + "/sub/" + std::to_string(i), folder == "two" ? "two" : "one");
    for (int i = 0; i < 10; ++i)
        drives.write("two/sub2/new " + std::to_string(i), "two");
    const std::string edited = "to/sub/5";
    std::size_t taken_back = 0;
    kill_often([&](std::size_t round) { copy_tree(round % 2 == 0 ? "two" : "one", "to"); },
               [&] {
                   drives.write(edited, "edited");
                   const Undone_copy undone = platform::undo_interrupted_copy("to");
                   // What stood in place of the edited file is in a folder of its own.
                   const fs::path shown = drives.host("to/Replaced by an interrupted copy");
                   EXPECT_EQ(undone.not_put_back.size(), fs::exists(shown) ? 2U : 0U);
                   if (fs::exists(shown)) {
                       const fs::path kept = fs::directory_iterator(shown)->path();
                       EXPECT_TRUE(kept.filename().string().ends_with(" 5"));
                   }
                   fs::remove_all(shown);
                   taken_back += undone.was_interrupted ? 1 : 0;
                   EXPECT_EQ(drives.read(edited), "edited");
                   fs::remove(drives.host(edited));
                   std::map<std::string, int> found;
                   for (const auto& entry : fs::recursive_directory_iterator(drives.host("to")))
                       if (entry.is_regular_file())
                           ++found[drives.read(entry.path().lexically_relative(drives.host()))];
                   EXPECT_TRUE(found == (std::map<std::string, int>{{"one", 39}}) || found["two"] >= 10);
                   EXPECT_TRUE(found["one"] == 0 || found["one"] == 39) << found["one"];
                   EXPECT_TRUE(found["two"] == 0 || found["two"] == 10 || found["two"] == 49) << found["two"];
                   drives.write(edited, found["one"] != 0 ? "one" : "two");
                   for (int i = 0; i < 40; ++i)
                       drives.write("to/sub/" + std::to_string(i), "one");
                   fs::remove_all(drives.host("to/sub2"));
               },
               "to/sub/0");
    std::cout << "taken back: " << taken_back << '\n';
}

TEST_F(Killed_saves, of_a_table) {
    const auto add_row = [](std::size_t round) {
        TESK::Binary_file_fstream file("C:\\table.dbf", false);
        TESK::dBase_data_source table(file);
        Row row(round);
        table.set(row);
        table.finish();
    };
    for (std::size_t row = 0; row < 100; ++row)
        add_row(row);
    kill_often(add_row, [&] {
        // The rows of before are there; one that was being written may be there in part.
        TESK::Binary_file_fstream file("C:\\table.dbf", false);
        TESK::dBase_data_source table(file);
        ASSERT_TRUE(table.read_structure());
        ASSERT_NE(table.find_field("TEXT"), nullptr);
        ASSERT_GE(table.get_header().record_count, 100U);
        for (std::uint32_t row = 0; row < 100; ++row) {
            ASSERT_TRUE(table.goto_record(row + 1));
            EXPECT_EQ(table.get_field_text(*table.find_field("TEXT")).substr(0, 7),
                      ("row " + std::to_string(row) + "   ").substr(0, 7));
        }
    });
}
