// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cmath>
#include <functional>
#include <memory>

namespace velmora {

/// One relation that a ConstraintLayout keeps for its view. The constant, in device-independent
/// pixels, can be changed at any time. Main thread only.
class LayoutConstraint {
public:
    enum class Relation {
        Height,         ///< height = constant
        Aspect,         ///< width = height x multiplier
        CenterX,        ///< horizontal centre = superview's centre + constant
        Bottom,         ///< superview's bottom = view's bottom + constant
        TrailingInside, ///< superview's trailing edge >= view's trailing edge
        Spacing         ///< none; only the constant is used, by other code
    };

    LayoutConstraint(Relation relation, double multiplier, double constant)
        : m_relation(relation), m_multiplier(multiplier), m_constant(constant) {}

    Relation relation() const { return m_relation; }
    double multiplier() const { return m_multiplier; }
    double constant() const { return m_constant; }
    /// Sets the constant and calls the change handler. NaN and infinity are ignored.
    void setConstant(double constant) {
        if (!std::isfinite(constant))
            return;
        m_constant = constant;
        if (m_changed)
            m_changed();
    }

    /// For the layout that the constraint is added to; called after setConstant().
    void setChangeHandler(std::function<void()> changed) { m_changed = std::move(changed); }

private:
    Relation m_relation;
    double m_multiplier;
    double m_constant;
    std::function<void()> m_changed;
};

using LayoutConstraintPtr = std::shared_ptr<LayoutConstraint>;

} // namespace velmora
