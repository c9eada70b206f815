// SPDX-License-Identifier: Apache-2.0
#include "tests/gallery/ContactSheet.h"
#include "tests/gallery/Desktop.h"
#include "tests/gallery/WaylandCompositor.h"

#include <QtGui/QGuiApplication>

#include <gtest/gtest.h>

#include <cstring>
#include <iostream>

namespace {

constexpr int Skipped = 77; // what CTest counts as skipped

} // namespace

// Runs the gallery on a desktop of its own. With "--contact-sheet FOLDER" it draws the contact
// sheet of a folder instead.
int main(int argc, char **argv) {
    ::testing::InitGoogleTest(&argc, argv);
    if (::testing::GTEST_FLAG(list_tests))
        return RUN_ALL_TESTS();
    if (argc == 3 && std::strcmp(argv[1], "--contact-sheet") == 0) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        const QGuiApplication application(argc, argv);
        return velmora::test::writeContactSheet(QString::fromLocal8Bit(argv[2])) ? 0 : 1;
    }
    const QString name = velmora::test::Desktop::name();
    const auto *compositor = velmora::test::WaylandCompositor::find(name);
    if (compositor && !compositor->isInstalled()) {
        std::cerr << "Skipped: " << name.toStdString() << " or Qt's Wayland plugin is missing\n";
        return Skipped;
    }
    const auto desktop = velmora::test::Desktop::start();
    if (!desktop->error().isEmpty()) {
        std::cerr << desktop->error().toStdString() << '\n';
        return 1;
    }
    const QGuiApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
