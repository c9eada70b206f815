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
    /// Lets interface resources use a class by its bare name.
    template<class T>
    static void registerClass(const QString &name) {
        registerFactory(name, [](QWidget *parent) -> QWidget * { return new T(parent); });
    }

    /// Builds the view tree of "interface/NAME.ui"; null, and a log line, when it cannot. A
    /// class that nobody registered is logged, since Qt drops it with all it contains.
    static QWidget *load(const QString &name);

    /// The element that an outlet is bound to, by object name; a missing one is logged.
    template<class T>
    static T *outlet(QWidget *root, const QString &name) {
        T *found =
            root->objectName() == name ? qobject_cast<T *>(root) : root->findChild<T *>(name);
        if (!found)
            missing(root, name);
        return found;
    }

    /// A constraint of the interface resource: a dynamic property of its root, whose number is
    /// the constant.
    static LayoutConstraintPtr constraint(QWidget *root, const QString &name,
                                          LayoutConstraint::Relation relation);

private:
    using Factory = std::function<QWidget *(QWidget *)>;
    static void registerFactory(const QString &name, Factory factory);
    static void missing(const QWidget *root, const QString &name);
};

} // namespace velmora
