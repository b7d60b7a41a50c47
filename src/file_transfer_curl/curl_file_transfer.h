// The client for the file transfer protocol, over libcurl.
#pragma once

#include "operations/file_transfer_client.h"

#include <chrono>
#include <memory>

class Curl_file_transfer : public File_transfer_client {
public:
    // A server that sends nothing for as long as the patience lasts is given up.
    explicit Curl_file_transfer(std::chrono::seconds patience = std::chrono::seconds(60));
    ~Curl_file_transfer() override;

    File_transfer_result connect(const File_transfer_server& server) override;
    // A file of more than 256 MiB is refused: no archive of a state is that large.
    File_transfer_result download(const std::string& remote, const std::string& local) override;
    void disconnect() override;

    // The library and its version, as it says it.
    static std::string library_version();

private:
    class Session;

    std::chrono::seconds patience_;
    std::unique_ptr<Session> session_; // null while there is no connection
};
