// A port of the loopback interface at which connections are taken, as long as the object lives, but never
// answered.
#pragma once

#include <arpa/inet.h>
#include <cstdint>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

class Silent_server {
public:
    Silent_server() : socket_(socket(AF_INET, SOCK_STREAM, 0)) {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t size = sizeof address;
        auto* const general = reinterpret_cast<sockaddr*>(&address);
        if (bind(socket_, general, size) == 0 && listen(socket_, 1) == 0 &&
            getsockname(socket_, general, &size) == 0)
            port = ntohs(address.sin_port);
    }
    Silent_server(const Silent_server&) = delete;
    Silent_server& operator=(const Silent_server&) = delete;
    ~Silent_server() { close(socket_); }

    std::uint16_t port = 0; // 0 when there is none
private:
    int socket_;
};
