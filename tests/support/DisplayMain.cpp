// SPDX-License-Identifier: Apache-2.0
#include "tests/support/OwnDisplay.h"
#ifdef VELMORA_TEST_ACCESSIBILITY
#include "tests/support/AccessibilityBus.h"
#endif

#include <QtCore/QTemporaryDir>
#include <QtWidgets/QApplication>

#include <gtest/gtest.h>

#include <iostream>

// Defined only in builds with the leak sanitizer.
extern "C" __attribute__((weak)) void __lsan_do_leak_check();

// Runs tests that need a real window system on a display of their own.
int main(int argc, char **argv) {
    const QTemporaryDir home;
    for (const char *variable : {"HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME", "XDG_DATA_HOME"})
        qputenv(variable, home.filePath(QLatin1String(variable)).toUtf8());
    ::testing::InitGoogleTest(&argc, argv);
    if (::testing::GTEST_FLAG(list_tests))
        return RUN_ALL_TESTS();
    const velmora::test::OwnDisplay display;
    if (!display.error().isEmpty()) {
        std::cerr << display.error().toStdString() << '\n';
        return 1;
    }
#ifdef VELMORA_TEST_ACCESSIBILITY
    const velmora::test::AccessibilityBus bus;
    if (!bus.error().isEmpty()) {
        std::cerr << "skipped: " << bus.error().toStdString() << '\n';
        return 77;
    }
#endif
    QApplication::setOrganizationName(QStringLiteral("Velmora Tests"));
    QApplication::setApplicationName(QStringLiteral("host"));
    QApplication application(argc, argv);
    const int result = RUN_ALL_TESTS();
    // The check must run while the display's drivers are loaded. Memory that they keep would look
    // like a leak once they are unloaded.
    if (__lsan_do_leak_check)
        __lsan_do_leak_check();
    return result;
}
