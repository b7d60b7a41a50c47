// What the program asks of a client for the file transfer protocol. The one real client lies in a library of
// its own.
#pragma once

#include <cstdint>
#include <string>

struct File_transfer_server {
    std::string host;
    std::uint16_t port = 21;
    std::string user;
    std::string password;
    // The server opens the connections for the data, to this host.
    bool active = true;
};

struct File_transfer_result {
    std::string failure; // a plain English sentence in UTF-8; empty when all went well

    bool ok() const { return failure.empty(); }
};

class File_transfer_client {
public:
    virtual ~File_transfer_client() = default;

    // Connects and logs in. A connection that is still open is closed first.
    virtual File_transfer_result connect(const File_transfer_server& server) = 0;

    // Gets a file of the server, by its whole name, into a file of the suite's naming, whole or not at all: a
    // file that is there already is replaced at the end. Waits for that, but not for a server that is silent.
    virtual File_transfer_result download(const std::string& remote, const std::string& local) = 0;

    virtual void disconnect() = 0;
};
