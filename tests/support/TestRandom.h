// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "RandomSource.h"

#include <random>

namespace velmora::test {

/// Replaces the framework's random numbers by a seeded sequence for as long as it exists.
class SeededRandom final : public RandomSource {
public:
    explicit SeededRandom(quint32 seed) : m_engine(seed) { setCurrent(this); }
    ~SeededRandom() override { setCurrent(nullptr); }
    quint32 next() override { return quint32(m_engine()); }

private:
    std::mt19937 m_engine;
};

/// Replaces the framework's random numbers by one number for as long as it exists.
class FixedRandom final : public RandomSource {
public:
    explicit FixedRandom(quint32 value) : m_value(value) { setCurrent(this); }
    ~FixedRandom() override { setCurrent(nullptr); }
    quint32 next() override { return m_value; }
    void set(quint32 value) { m_value = value; }

private:
    quint32 m_value;
};

} // namespace velmora::test
