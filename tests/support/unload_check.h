// Every test program ends by asking the library whether it could be unloaded: an object,
// factory, instance or lock still alive after the last test is a leak, and fails the run.
#pragma once

#include <gtest/gtest.h>

#include "corvex/common/object.h"
#include "corvex/library/server.h"

namespace corvex::testing {

/// The check, as a GoogleTest environment torn down after the last test.
class UnloadCheck : public ::testing::Environment {
public:
    /// Fails the run when DllCanUnloadNow says the library is still in use.
    void TearDown() override {
        EXPECT_EQ(DllCanUnloadNow(), S_OK)
            << Object::liveCount() << " objects, " << liveServerObjects()
            << " factories or instances and " << serverLocks() << " locks outlived the tests";
    }
};

}  // namespace corvex::testing
