#pragma once

#include "platform/RuntimeError.h"

namespace sidekin::test {

// The number of the run-time error the call raises, 0 when it raises none.
template <typename Call>
int errorOf(Call&& call) {
    try {
        call();
    } catch (const RuntimeError& e) {
        return e.number();
    }
    return 0;
}

}  // namespace sidekin::test
