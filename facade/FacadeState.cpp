// SPDX-License-Identifier: Apache-2.0
#include "FacadeState.h"

#include "ProcessRoot.h"

namespace velmora {

FacadeState &FacadeState::current() {
    return ProcessRoot::get<FacadeState>();
}

} // namespace velmora
