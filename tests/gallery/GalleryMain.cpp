// SPDX-License-Identifier: Apache-2.0
#include "tests/gallery/ContactSheet.h"
#include "tests/gallery/Desktop.h"

#include <QtGui/QGuiApplication>

#include <gtest/gtest.h>

#include <cstring>
#include <iostream>

// Runs the gallery on a desktop of its own: that of VELMORA_GALLERY_DESKTOP, or openbox. With
// "--contact-sheet FOLDER" it draws the contact sheet of a folder instead.
int main(int argc, char **argv) {
    ::testing::InitGoogleTest(&argc, argv);
    if (::testing::GTEST_FLAG(list_tests))
        return RUN_ALL_TESTS();
    if (argc == 3 && std::strcmp(argv[1], "--contact-sheet") == 0) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        const QGuiApplication application(argc, argv);
        return velmora::test::writeContactSheet(QString::fromLocal8Bit(argv[2])) ? 0 : 1;
    }
    const auto desktop = velmora::test::Desktop::start(
        qEnvironmentVariable("VELMORA_GALLERY_DESKTOP", QStringLiteral("openbox")));
    if (!desktop->error().isEmpty()) {
        std::cerr << desktop->error().toStdString() << '\n';
        return 1;
    }
    const QGuiApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
