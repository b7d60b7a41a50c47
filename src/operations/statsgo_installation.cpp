#include "operations/statsgo_installation.h"

#include "names/smart_file_name.h"

#include <cstdlib>

const std::array<const char*, 53> statsgo_states = {
    "AL Alabama",        "AK Alaska",       "AZ Arizona",
    "AR Arkansas",       "CA California",   "CO Colorado",
    "CT Connecticut",    "DE Delaware",     "DC District of Columbia",
    "FL Florida",        "GA Georgia",      "HI Hawaii",
    "ID Idaho",          "IL Illinois",     "IN Indiana",
    "IA Iowa",           "KS Kansas",       "KY Kentucky",
    "LA Louisiana",      "ME Maine",        "MD Maryland",
    "MA Massachusetts",  "MI Michigan",     "MN Minnesota",
    "MS Mississippi",    "MO Missouri",     "MT Montana",
    "NE Nebraska",       "NV Nevada",       "NH New Hampshire",
    "NJ New Jersey",     "NM New Mexico",   "NY New York",
    "NC North Carolina", "ND North Dakota", "OH Ohio",
    "OK Oklahoma",       "OR Oregon",       "PA Pennsylvania",
    "PR Puerto Rico",    "RI Rhode Island", "SC South Carolina",
    "SD South Dakota",   "TN Tennessee",    "TX Texas",
    "UT Utah",           "VT Vermont",      "VI Virgin Islands",
    "VA Virginia",       "WA Washington",   "WV West Virginia",
    "WI Wisconsin",      "WY Wyoming",
};

namespace {

constexpr std::size_t code_length = 2;
constexpr const char* remote_folder = "/pub/statsgo/dos/arc/data/";
constexpr const char* archive_extension = ".zip";

std::string statsgo_server_host() {
    const char* host = std::getenv("TVS_STATSGO_SERVER");
    return host == nullptr ? "ftp.example.org" : host;
}

File_transfer_result connect(File_transfer_client& client) {
    File_transfer_server server;
    server.host = statsgo_server_host();
    server.user = "ftp";
    server.password = "ftpvisits";
    return client.connect(server);
}

} // namespace

File_transfer_result install_statsgo_states(File_transfer_client& client, const TESK::Directory_name& folder,
                                            const std::vector<int>& states,
                                            const Statsgo_progress& progress) {
    File_transfer_result result = connect(client);
    if (!result.ok())
        return result;
    for (const int state : states) {
        const std::string archive =
            std::string(statsgo_states.at(static_cast<std::size_t>(state)), code_length) + archive_extension;
        const TESK::Smart_file_name local((folder + '\\' + archive).c_str());
        result = client.download(remote_folder + archive, local);
        if (!result.ok())
            return result;
        if (state == states.front())
            progress.before_first_is_opened();
        local.open();
        if (!progress.installed(state))
            break;
    }
    client.disconnect();
    return result;
}
