// SPDX-License-Identifier: Apache-2.0
#include "WidgetApplication.h"

#include <QtCore/QLoggingCategory>
#include <QtWidgets/QApplication>

#include <utility>

namespace velmora {

namespace {
Q_LOGGING_CATEGORY(quickLog, "velmora")
} // namespace

bool WidgetApplication::exists() {
    if (qobject_cast<QApplication *>(QCoreApplication::instance()))
        return true;
    // Static, so that a host with many banners gets one line.
    static bool hasWarned = false;
    if (!std::exchange(hasWarned, true))
        qCWarning(quickLog, "No advertising is shown: the host has to make a QApplication, "
                            "not a QGuiApplication, since advertising consists of widgets");
    return false;
}

} // namespace velmora
