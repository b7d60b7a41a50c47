#include "app/entry.h"

#include <iostream>

int main(int argc, char** argv) {
    return run_program({argv, argv + argc}, std::cout, std::cerr);
}
