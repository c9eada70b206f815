// SPDX-License-Identifier: Apache-2.0
#include "EventSource.h"

#include "ProcessRoot.h"

namespace velmora {

VelmoraEvents *EventSource::existing() {
    EventSource *source = ProcessRoot::existing<EventSource>();
    return source ? &source->events : nullptr;
}

} // namespace velmora
