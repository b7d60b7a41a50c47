#include "file_transfer_curl/curl_file_transfer.h"

#include "support/loopback.h"
#include "support/temporary_drives.h"

#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>

namespace {

// A real server on the loopback interface, as long as the object lives.
class Ftp_server {
public:
    explicit Ftp_server(const std::string& folder) {
        int input[2];
        int output[2];
        if (pipe(input) != 0 || pipe(output) != 0)
            return;
        process_ = fork();
        if (process_ == 0) {
            dup2(input[0], 0);
            dup2(output[1], 1);
            for (const int end : {input[0], input[1], output[0], output[1]})
                close(end);
            execl("/usr/bin/python3", "python3", FTP_SERVER, folder.c_str(), nullptr);
            _exit(127);
        }
        close(input[0]);
        close(output[1]);
        input_ = input[1];
        char text[16] = {};
        if (read(output[0], text, sizeof text - 1) > 0)
            port_ = static_cast<std::uint16_t>(std::atoi(text));
        close(output[0]);
    }
    Ftp_server(const Ftp_server&) = delete;
    Ftp_server& operator=(const Ftp_server&) = delete;
    ~Ftp_server() {
        close(input_);
        waitpid(process_, nullptr, 0);
    }

    // 0 when the host has no such server.
    std::uint16_t port() const { return port_; }

private:
    pid_t process_ = -1;
    int input_ = -1;
    std::uint16_t port_ = 0;
};

File_transfer_server at_port(std::uint16_t port) {
    return {"127.0.0.1", port, "ftp", "ftpvisits"};
}

class Curl_file_transfer_test : public testing::Test {
protected:
    std::string failure_of_download(const std::string& remote, const std::string& local) {
        return client.download(remote, "C:\\here\\" + local).failure;
    }
    // What is in the folder that is downloaded into.
    std::string entries() const { return entries_of(drives.host("here")); }

    Temporary_drives drives;
    Environment_guard no_proxy{"no_proxy", "127.0.0.1"};
    Curl_file_transfer client{std::chrono::seconds(1)};
};

class With_server : public Curl_file_transfer_test {
protected:
    With_server() {
        drives.write("here/AL.zip", "old");
        drives.write("there/pub/data/AL.zip", archive);
        drives.write("there/pub/data/100% sand #1.zip", "sand");
        drives.write("there/pub/data/empty.zip");
        for (const char* faulty : {"broken", "stuck"})
            drives.write(std::string("there/pub/data/") + faulty + ".zip", archive);
        server.emplace(drives.host("there"));
    }
    void SetUp() override {
        if (server->port() == 0)
            GTEST_SKIP() << "python3-pyftpdlib is not installed";
        ASSERT_EQ(client.connect(at_port(server->port())).failure, "");
    }

    const std::string archive = std::string(300'000, 'x') + '\0' + "\r\n\xFF";
    std::optional<Ftp_server> server;
};

TEST_F(With_server, a_file_arrives_byte_for_byte_in_place_of_the_old_one) {
    EXPECT_EQ(failure_of_download("/pub/data/AL.zip", "AL.zip"), "");
    EXPECT_TRUE(drives.read("here/AL.zip") == archive);
    EXPECT_EQ(failure_of_download("/pub/data/100% sand #1.zip", "sand.zip"), "");
    EXPECT_EQ(drives.read("here/sand.zip"), "sand");
    EXPECT_EQ(failure_of_download("/pub/data/empty.zip", "empty.zip"), "");
    EXPECT_EQ(entries(), "AL.zip empty.zip sand.zip ");
}

TEST_F(With_server, a_failed_or_broken_transfer_leaves_the_folder_as_it_was_and_the_next_works) {
    for (const char* file : {"/pub/data/WY.zip", "/pub/data", "/pub/data/broken.zip", "/pub/da\r\nta", ""}) {
        const std::string told = failure_of_download(file, "AL.zip");
        EXPECT_TRUE(told.starts_with(std::string("Cannot download ") + file + ": ") && told.ends_with("."))
            << told;
        EXPECT_NE(failure_of_download(file, "new.zip"), "");
        EXPECT_EQ(entries(), "AL.zip ");
        EXPECT_EQ(drives.read("here/AL.zip"), "old");
    }
    EXPECT_EQ(client.download("/pub/data/AL.zip", "C:\\nowhere\\AL.zip").failure,
              "Cannot download /pub/data/AL.zip: The file or its folder does not exist.");
    EXPECT_EQ(failure_of_download("/pub/data/AL.zip", "AL.zip"), "");
    EXPECT_NE(failure_of_download("/pub/data/stuck.zip", "new.zip"), "");
    EXPECT_EQ(entries(), "AL.zip ");
}

TEST_F(With_server, a_wrong_password_and_a_closed_connection_are_refused) {
    File_transfer_server stranger = at_port(server->port());
    stranger.password = "guess";
    EXPECT_NE(client.connect(stranger).failure, "");
    EXPECT_EQ(failure_of_download("/pub/data/AL.zip", "AL.zip"),
              "Cannot download /pub/data/AL.zip: There is no connection.");
    ASSERT_TRUE(client.connect(at_port(server->port())).ok());
    client.disconnect();
    EXPECT_NE(failure_of_download("/pub/data/AL.zip", "AL.zip"), "");
}

TEST_F(Curl_file_transfer_test, a_server_that_is_not_there_or_never_answers_is_given_up) {
    Silent_server silent;
    ASSERT_NE(silent.port, 0);
    EXPECT_NE(client.connect(at_port(silent.port)).failure, "");
    File_transfer_server absent = at_port(1);
    EXPECT_TRUE(client.connect(absent).failure.starts_with("Cannot connect to 127.0.0.1: "));
    absent.host = "no host/at all";
    EXPECT_NE(client.connect(absent).failure, "");
}

} // namespace
