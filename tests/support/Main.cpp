// SPDX-License-Identifier: Apache-2.0
#include <QtCore/QDir>
#include <QtCore/QTemporaryDir>

#ifdef VELMORA_TEST_WIDGETS
#include <QtWidgets/QApplication>
using Application = QApplication;
#else
#include <QtCore/QCoreApplication>
using Application = QCoreApplication;
#endif

#include <gtest/gtest.h>

int main(int argc, char **argv) {
    // The user's own settings and caches stay unused. The child process of a test shares the
    // folders of its parent.
    const QTemporaryDir home;
    if (!qEnvironmentVariableIsSet("VELMORA_TEST_CHILD")) {
        for (const char *variable : {"HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME", "XDG_DATA_HOME"})
            qputenv(variable, home.filePath(QLatin1String(variable)).toUtf8());
    }
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    ::testing::InitGoogleTest(&argc, argv);
    // For tests of a host without an application object.
    if (qEnvironmentVariableIsSet("VELMORA_TEST_UNNAMED"))
        return RUN_ALL_TESTS();
    Application::setOrganizationName(QStringLiteral("Velmora Tests"));
    Application::setApplicationName(QStringLiteral("host"));
    Application application(argc, argv);
    return RUN_ALL_TESTS();
}
