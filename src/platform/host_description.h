// What kind of machine and system this is, for who reports a fault.
#pragma once

#include <string>

namespace platform {

// "Debian GNU/Linux 12 (bookworm), Linux 6.1.0 x86_64"; as much of it as the host tells.
std::string host_description();

} // namespace platform
