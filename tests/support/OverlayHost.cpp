// SPDX-License-Identifier: Apache-2.0
#include "tests/support/OverlayHost.h"

#include "tests/support/Waiting.h"

#include <QtGui/QCursor>
#include <QtGui/QWindow>
#include <QtTest/QTest>
#include <QtWidgets/QToolBar>

namespace velmora::test {

OverlayHost::OverlayHost() {
    reset();
}

OverlayHost::~OverlayHost() = default;

void OverlayHost::reset() {
    overlay.reset();
    window = std::make_unique<QMainWindow>();
    content = new QWidget;
    window->setCentralWidget(content);
    name = new QLineEdit(content);
    name->setGeometry(20, 20, 120, 30);
    city = new QLineEdit(content);
    city->setGeometry(20, 60, 120, 30);
    search = new QLineEdit;
    window->addToolBar(QStringLiteral("tools"))->addWidget(search);
    window->resize(400, 300);
    window->show();
    ASSERT_TRUE(activate(window.get()));
}

void OverlayHost::make(Overlay::Kind kind) {
    view = new QWidget;
    close = new QPushButton(QStringLiteral("close"), view);
    close->setGeometry(10, 10, 80, 30);
    more = new QPushButton(QStringLiteral("more"), view);
    more->setGeometry(10, 50, 80, 30);
    for (QPushButton *button : {close.data(), more.data()}) {
        QObject::connect(button, &QPushButton::clicked,
                         [this, button] { clicked.append(button->text()); });
    }
    overlay = std::make_unique<Overlay>(view, content, kind);
}

bool OverlayHost::activate(QWidget *widget) {
    for (int attempt = 0; attempt < 100; ++attempt) {
        widget->activateWindow();
        QCursor::pos(); // a round trip to the X server, which flushes pending requests
        if (eventually([&] { return widget->isActiveWindow(); }, 150))
            return eventually([&] { return widget->windowHandle()->isExposed(); });
    }
    return false;
}

void OverlayHost::press(Qt::Key key) {
    QTest::keyClick(window->windowHandle(), key);
    handleEvents();
}

} // namespace velmora::test
