// SPDX-License-Identifier: Apache-2.0
#include "tests/support/OwnDisplay.h"
#include "tests/support/SplashHost.h"
#include "tests/support/Waiting.h"

#include <QtCore/QMimeData>
#include <QtCore/QTimer>
#include <QtGui/QDrag>
#include <QtGui/QMouseEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMenu>
#include <QtWidgets/QVBoxLayout>

namespace velmora::test {

namespace {

/// Begins a drag when the mouse is moved with a button held.
class DragSource : public QWidget {
public:
    using QWidget::QWidget;
    bool isDragging = false;

protected:
    void mouseMoveEvent(QMouseEvent *) override {
        if (isDragging)
            return;
        isDragging = true;
        auto *drag = new QDrag(this);
        drag->setMimeData(new QMimeData);
        drag->exec();
        isDragging = false;
    }
};

} // namespace

/// A user at a real keyboard and mouse. The seconds after a keystroke are virtual.
class SoftShowDisplayTest : public SplashHost {
protected:
    SoftShowDisplayTest() {
        auto *column = new QVBoxLayout(window);
        column->addWidget(edit = new QLineEdit);
        column->addWidget(source = new DragSource, 1);
        eventually([this] { return window->isActiveWindow() && presenter().isFocus(); });
        edit->setFocus();
        time.advance(30);
    }

    static void act(QAnyStringView command) {
        runOnDisplay(QStringLiteral("xdotool"), command.toString().split(u' '));
    }
    static void moveTo(const QWidget *widget, int offset = 0) {
        const QPoint point = widget->mapToGlobal(widget->rect().center()) + QPoint(offset, 0);
        act(QStringLiteral("mousemove %1 %2").arg(point.x()).arg(point.y()));
    }
    void expectWaiting() {
        Velmora::show();
        quietly(50);
        EXPECT_TRUE(presenter().isWaitingForUser());
        EXPECT_FALSE(Velmora::isShowSplashScreen());
    }
    void expectShown() {
        EXPECT_TRUE(eventually([] { return Velmora::isShowSplashScreen(); }));
        time.advance(10);
        presenter().didClickClose();
        time.advance(120);
        eventually([] { return presenter().isFocus(); });
        edit->setFocus();
    }

    QWidget *window = openRegistered("main");
    QLineEdit *edit;
    DragSource *source;
};

TEST_F(SoftShowDisplayTest, WaitsForRealKeysButtonsAndPopups) {
    act("keydown a");
    ASSERT_TRUE(eventually([this] { return !edit->text().isEmpty(); }));
    expectWaiting();
    act("keyup a");
    quietly(50);
    EXPECT_FALSE(Velmora::isShowSplashScreen());
    time.advance(1.1);
    expectShown();

    moveTo(source);
    act("mousedown 1");
    ASSERT_TRUE(eventually([] { return QGuiApplication::mouseButtons() != Qt::NoButton; }));
    expectWaiting();
    act("mouseup 1");
    expectShown();

    moveTo(edit);
    act("click 3"); // the context menu of the text field
    ASSERT_TRUE(eventually([] { return QApplication::activePopupWidget() != nullptr; }));
    expectWaiting();
    act("key Escape");
    ASSERT_TRUE(eventually([] { return !QApplication::activePopupWidget(); }));
    time.advance(1.1);
    expectShown();
}

TEST_F(SoftShowDisplayTest, WaitsForADragThatLeavesTheWindow) {
    bool wasWaiting = false;
    bool wasShown = false;
    // Inside of the drag's event loop.
    QTimer whileDragging;
    QObject::connect(&whileDragging, &QTimer::timeout, [&] {
        if (!source->isDragging)
            return;
        whileDragging.stop();
        moveTo(source, 2 * window->width());
        quietly(100);
        Velmora::show();
        quietly(100);
        wasWaiting = presenter().isWaitingForUser();
        wasShown = Velmora::isShowSplashScreen();
        act("mouseup 1");
    });
    whileDragging.start(20);
    moveTo(source);
    act("mousedown 1");
    moveTo(source, 30);
    ASSERT_TRUE(eventually([&] { return !whileDragging.isActive() && !source->isDragging; }));
    EXPECT_TRUE(wasWaiting);
    EXPECT_FALSE(wasShown);
    expectShown();
}

} // namespace velmora::test
