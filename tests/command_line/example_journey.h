// The example suite in a temporary folder, and the program as a user of a shell calls it there.
#pragma once

#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <vector>

class Example_journey : public testing::Test {
protected:
    struct Result {
        int code;
        std::string out;
        std::string err;
    };

    // A call, and what is to come of it: the whole output, the exit code, and what the errors must tell (""
    // for none at all).
    struct Call {
        std::string command;
        std::string out = "";
        int code = 0;
        const char* err = "";
    };

    void SetUp() override {
        const std::string install =
            "bash '" INSTALL_EXAMPLE "' '" + folder.path("example") + "' '" BUILD_FOLDER "' >/dev/null";
        ASSERT_EQ(std::system(install.c_str()), 0);
    }

    // Runs the shell's command in the folder of projects, where `tvs_project` is the suite's.
    Result run(const std::string& command) const {
        folder.write("command.sh", "cd '" + folder.path("example/drive_c/Simulation/Projects") +
                                       "'\nunset NO_COLOR TVS_SUITE\nexport TVS_DRIVES='" +
                                       folder.path("example/dosdevices") + "' XDG_DATA_HOME='" +
                                       folder.path("data") + "' PATH='" +
                                       folder.path("example/drive_c/Program Files/TVS_suite/Tilverra") +
                                       "':$PATH\n" + command + '\n');
        const int status = std::system(("bash '" + folder.path("command.sh") + "' >'" + folder.path("out") +
                                        "' 2>'" + folder.path("err") + "' </dev/null")
                                           .c_str());
        return {WEXITSTATUS(status), folder.read("out"), folder.read("err")};
    }

    // Puts a script in the place of the model, which is kept beside the projects as "good": it does what is
    // told for the scenario $name, and leaves an output of it in the folder.
    void script_model(const std::string& work, const std::string& scenarios = "Scenarios") const {
        const std::string suite = "example/drive_c/Program Files/TVS_suite/Tilverra/tilverra_5.exe";
        std::filesystem::rename(folder.path(suite), folder.path("example/drive_c/Simulation/Projects/good"));
        folder.write(suite, "#!/bin/bash\nname=${2##*\\\\}; " + work + "\necho >" + scenarios +
                                "/${name%%.tvn}/Output/season.xeb\n");
        std::filesystem::permissions(folder.path(suite), std::filesystem::perms::owner_all);
    }

    void expect(const std::vector<Call>& calls) const {
        for (const Call& call : calls) {
            const Result result = run(call.command);
            EXPECT_EQ(result.code, call.code) << call.command << '\n' << result.err;
            EXPECT_EQ(result.out, call.out) << call.command;
            if (*call.err == 0)
                EXPECT_EQ(result.err, "") << call.command;
            else
                EXPECT_NE(result.err.find(call.err), std::string::npos) << call.command << '\n' << result.err;
        }
    }

    // The same where no file and no time of one changes.
    void expect_unchanged(const std::vector<Call>& calls) const {
        const std::string tree = "find . -printf '%p %s %T@\\n' | sort";
        const std::string before = run(tree).out;
        expect(calls);
        EXPECT_EQ(run(tree).out, before);
    }

    // A file below the folder of projects.
    std::string project_file(const std::string& name) const {
        return folder.read("example/drive_c/Simulation/Projects/" + name);
    }

    Temporary_folder folder;
};
