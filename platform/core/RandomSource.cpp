// SPDX-License-Identifier: Apache-2.0
#include "RandomSource.h"

#include <QtCore/QRandomGenerator>

namespace velmora {

namespace {

class SystemRandomSource final : public RandomSource {
public:
    quint32 next() override { return QRandomGenerator::system()->generate(); }
};

// Set by tests. Not in ProcessRoot: a test replaces the source before it drops the process state
// and expects the replacement to stay.
RandomSource *s_replacement = nullptr;

} // namespace

RandomSource &RandomSource::current() {
    static SystemRandomSource system;
    return s_replacement ? *s_replacement : system;
}

void RandomSource::setCurrent(RandomSource *source) {
    s_replacement = source;
}

} // namespace velmora
