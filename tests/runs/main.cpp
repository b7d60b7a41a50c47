#include "runs/run_supervisor.h"

#include <gtest/gtest.h>

int main(int argc, char** argv) {
    if (const auto exit_code = supervise_if_asked(argc, argv))
        return *exit_code;
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
