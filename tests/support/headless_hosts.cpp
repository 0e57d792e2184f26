// The hosts of the headless test program: the headless host alone.
#include "support/headless_fixture.h"

namespace corvex::testing {

std::vector<HarnessMaker> availableHarnesses() {
    return {{"Headless", [] { return std::make_unique<HeadlessHarness>(); }}};
}

}  // namespace corvex::testing
