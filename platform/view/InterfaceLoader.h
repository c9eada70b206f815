// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "LayoutConstraint.h"

#include <QtCore/QString>
#include <QtWidgets/QWidget>

#include <functional>

namespace velmora {

/// Loads the framework's interface resources (.ui files) at run time, with the framework's own
/// classes. Main thread only.
class InterfaceLoader {
public:
    /// Lets interface resources use a class under a name. T needs a constructor that takes the
    /// parent widget.
    template<class T>
    static void registerClass(const QString &name) {
        registerFactory(name, [](QWidget *parent) -> QWidget * { return new T(parent); });
    }

    /// Makes the widgets of "interface/NAME.ui" and returns the root, which the caller owns; null,
    /// and a log line, when it can't. An element of a class that is not registered is left out
    /// with all its children, and logged.
    static QWidget *load(const QString &name);

    /// The widget of the loaded tree with an object name; null, and a log line, when it is missing.
    template<class T>
    static T *outlet(QWidget *root, const QString &name) {
        T *found =
            root->objectName() == name ? qobject_cast<T *>(root) : root->findChild<T *>(name);
        if (!found)
            missing(root, name);
        return found;
    }

    /// Makes a constraint whose constant is a dynamic property of the root. A missing property is
    /// logged, and counts as 0.
    static LayoutConstraintPtr constraint(QWidget *root, const QString &name,
                                          LayoutConstraint::Relation relation);

private:
    using Factory = std::function<QWidget *(QWidget *)>;
    static void registerFactory(const QString &name, const Factory &factory);
    static void missing(const QWidget *root, const QString &name);
};

} // namespace velmora
