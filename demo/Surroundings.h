// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QList>
#include <QtCore/QProcessEnvironment>
#include <QtCore/QString>

#include <utility>

namespace demo {

/// What a desktop would normally choose for its reader: language, scale, dark colours, reading
/// direction and how much moves. The demo can replace each of them, to show how advertising looks
/// there.
struct Surroundings {
    /// The language of the framework's texts, such as "de"; empty for the desktop's. The journal
    /// itself is in English.
    QString language;
    double scale = 1; ///< factor on top of the desktop's
    bool isDark = false;
    bool isRightToLeft = false;
    bool hasReducedMotion = false;

    static constexpr double LeastScale = 1;
    static constexpr double GreatestScale = 3;
    /// The languages that the framework has texts in, and their own names.
    static QList<std::pair<QString, QString>> languages();

    /// Sets what Qt and the framework read when they start. To be called before the application
    /// object is made.
    void applyBeforeStart() const;
    /// The environment variables as they were before applyBeforeStart().
    static const QProcessEnvironment &environmentBeforeStart();
    /// Sets the rest, which may change at any time.
    void apply() const;
};

} // namespace demo
