#include "file_transfer_curl/curl_file_transfer.h"

#include "platform/file_writer.h"
#include "platform/files.h"

#include <curl/curl.h>

namespace {

using Handle = std::unique_ptr<CURL, decltype(&curl_easy_cleanup)>;
using Address = std::unique_ptr<CURLU, decltype(&curl_url_cleanup)>;

constexpr long lowest_speed = 100; // bytes a second; what comes more slowly is given up as well

Handle make_handle() {
    static const CURLcode ready = curl_global_init(CURL_GLOBAL_DEFAULT);
    return {ready == CURLE_OK ? curl_easy_init() : nullptr, curl_easy_cleanup};
}

std::size_t take_bytes(char* bytes, std::size_t, std::size_t count, void* contents) {
    auto& taken = *static_cast<std::string*>(contents);
    // Any other answer than the count ends the transfer.
    if (count > platform::largest_text_file - taken.size())
        return 0;
    taken.append(bytes, count);
    return count;
}

File_transfer_result failure(const std::string& what, const char* why) {
    return {what + ": " + why + "."};
}

} // namespace

// One login at a server.
class Curl_file_transfer::Session {
public:
    Session(const File_transfer_server& server, std::chrono::seconds patience)
        : host_(server.host), port_(server.port) {
        if (handle_ == nullptr)
            return;
        const auto seconds = static_cast<long>(patience.count());
        set(CURLOPT_PROTOCOLS_STR, "ftp");
        set(CURLOPT_NOSIGNAL, 1L);
        set(CURLOPT_USERNAME, server.user.c_str());
        set(CURLOPT_PASSWORD, server.password.c_str());
        set(CURLOPT_FTPPORT, server.active ? "-" : nullptr);
        // The server is asked for the file by its whole name, and not to go through the folders above it.
        set(CURLOPT_FTP_FILEMETHOD, static_cast<long>(CURLFTPMETHOD_NOCWD));
        set(CURLOPT_CONNECTTIMEOUT, seconds);
        set(CURLOPT_SERVER_RESPONSE_TIMEOUT, seconds);
        set(CURLOPT_ACCEPTTIMEOUT_MS, seconds * 1000);
        set(CURLOPT_LOW_SPEED_TIME, seconds);
        set(CURLOPT_LOW_SPEED_LIMIT, lowest_speed);
        set(CURLOPT_MAXFILESIZE_LARGE, static_cast<curl_off_t>(platform::largest_text_file));
        set(CURLOPT_WRITEFUNCTION, &take_bytes);
    }

    // Null, or what is wrong.
    const char* log_in() {
        std::string nothing;
        return perform("/", true, nothing);
    }
    const char* get(const std::string& remote, std::string& contents) {
        // A name like these would stand for the list of a folder.
        if (remote.empty() || remote.back() == '/')
            return curl_easy_strerror(CURLE_REMOTE_FILE_NOT_FOUND);
        // The first separator only ends the host's name.
        return perform("/" + remote, false, contents);
    }

private:
    template <class Value>
    void set(CURLoption option, Value value) {
        curl_easy_setopt(handle_.get(), option, value);
    }

    const char* perform(const std::string& path, bool login_alone, std::string& contents) {
        const Address address(curl_url(), curl_url_cleanup);
        if (handle_ == nullptr || address == nullptr)
            return curl_easy_strerror(CURLE_FAILED_INIT);
        if (curl_url_set(address.get(), CURLUPART_SCHEME, "ftp", 0) != CURLUE_OK ||
            curl_url_set(address.get(), CURLUPART_HOST, host_.c_str(), 0) != CURLUE_OK ||
            curl_url_set(address.get(), CURLUPART_PORT, std::to_string(port_).c_str(), 0) != CURLUE_OK ||
            curl_url_set(address.get(), CURLUPART_PATH, path.c_str(), CURLU_URLENCODE) != CURLUE_OK)
            return curl_easy_strerror(CURLE_URL_MALFORMAT);
        set(CURLOPT_CURLU, address.get());
        set(CURLOPT_NOBODY, login_alone ? 1L : 0L);
        set(CURLOPT_WRITEDATA, &contents);
        const CURLcode code = curl_easy_perform(handle_.get());
        set(CURLOPT_CURLU, static_cast<CURLU*>(nullptr));
        return code == CURLE_OK ? nullptr : curl_easy_strerror(code);
    }

    Handle handle_ = make_handle();
    std::string host_;
    std::uint16_t port_;
};

Curl_file_transfer::Curl_file_transfer(std::chrono::seconds patience) : patience_(patience) {}

Curl_file_transfer::~Curl_file_transfer() = default;

File_transfer_result Curl_file_transfer::connect(const File_transfer_server& server) {
    session_ = std::make_unique<Session>(server, patience_);
    if (const char* fault = session_->log_in()) {
        session_.reset();
        return failure("Cannot connect to " + server.host, fault);
    }
    return {};
}

File_transfer_result Curl_file_transfer::download(const std::string& remote, const std::string& local) {
    const std::string what = "Cannot download " + remote;
    if (session_ == nullptr)
        return failure(what, "There is no connection");
    // The bytes are kept in memory until all are there, so that a broken transfer leaves no trace.
    std::string contents;
    if (const char* fault = session_->get(remote, contents))
        return failure(what, fault);
    const platform::Write_result written =
        platform::write_file(local, contents, platform::Durability::durable);
    return {written.ok() ? "" : what + ": " + written.reason};
}

void Curl_file_transfer::disconnect() {
    session_.reset();
}

std::string Curl_file_transfer::library_version() {
    return std::string("libcurl ") + curl_version_info(CURLVERSION_NOW)->version;
}
