// SPDX-License-Identifier: Apache-2.0
#include "RandomSource.h"

#include <QtCore/QRandomGenerator>

namespace velmora {

namespace {

class SystemRandomSource final : public RandomSource {
public:
    quint32 next() override { return QRandomGenerator::system()->generate(); }
};

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
