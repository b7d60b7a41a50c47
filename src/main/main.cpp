#include "app/entry.h"
#include "file_transfer_curl/curl_file_transfer.h"

#include <iostream>

int main(int argc, char** argv) {
    Curl_file_transfer file_transfer;
    current_file_transfer = &file_transfer;
    return run_program({argv, argv + argc}, std::cout, std::cerr);
}
