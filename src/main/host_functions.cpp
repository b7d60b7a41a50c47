#include "main/host_functions.h"

#include "editing/bound_control.h"
#include "platform/host_names.h"
#include "platform/shell.h"

Host_functions host_functions() {
    Host_functions functions;
    functions.host_path = [](const std::string& name) { return platform::host_path(record_text(name)); };
    functions.program_name = [](const std::string& path) {
        return screen_text(platform::name_from_host_path(path));
    };
    functions.open_web_address = [](const std::string& address) {
        platform::shell().shell_execute("open", address, 1);
    };
    return functions;
}
