// The core tests' main: GoogleTest's, with the unload check after the last test.
#include <gtest/gtest.h>

#include "support/unload_check.h"

int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    ::testing::AddGlobalTestEnvironment(new corvex::testing::UnloadCheck);
    return RUN_ALL_TESTS();
}
