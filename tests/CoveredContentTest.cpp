// SPDX-License-Identifier: Apache-2.0
#include "CloseButtonCell.h"
#include "tests/support/OverlayHost.h"
#include "tests/support/OwnDisplay.h"
#include "tests/support/Waiting.h"

#include <QtCore/QMimeData>
#include <QtGui/QClipboard>
#include <QtGui/QDropEvent>
#include <QtGui/QHelpEvent>
#include <QtGui/QShortcut>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QToolTip>

namespace velmora::test {

/// A host's editor below an overlay that is a plain child, or a native window.
class CoveredContentTest : public OverlayHost, public ::testing::WithParamInterface<Overlay::Kind> {
protected:
    CoveredContentTest() {
        editor = new QPlainTextEdit(Draft);
        editor->setContextMenuPolicy(Qt::CustomContextMenu);
        window->setCentralWidget(editor);
        content = editor;
        make(GetParam());
        // In the same place as the overlay's close button.
        below = new QPushButton(QStringLiteral("below"), editor);
        below->setGeometry(close->geometry());
        below->show();
        QObject::connect(below, &QPushButton::pressed, [this] { ++presses; });
        editor->setFocus();
        handleEvents();
    }

    void show() {
        overlay->setHiddenNow(false);
        ASSERT_EQ(overlay->isNative(), GetParam() == Overlay::Kind::Native);
        ASSERT_TRUE(eventually([this] { return view->window()->windowHandle()->isExposed(); }));
    }
    static void type(const QStringList &keys) {
        runOnDisplay(QStringLiteral("xdotool"), QStringList{QStringLiteral("key")} + keys);
    }
    void pressShortcut(int key, Qt::KeyboardModifiers modifiers) const {
        QTest::keyClick(window->windowHandle(), Qt::Key(key), modifiers);
        handleEvents();
    }
    auto note(const char *what) {
        return [this, what] { acted.append(QLatin1String(what)); };
    }
    void addShortcut(QWidget *owner, const QKeySequence &keys, Qt::ShortcutContext context) {
        auto *shortcut = new QShortcut(keys, owner);
        shortcut->setContext(context);
        QObject::connect(shortcut, &QShortcut::activated,
                         [this, keys] { acted.append(keys.toString()); });
    }
    QAction *addAction(QWidget *owner, const QKeySequence &keys) {
        auto *action = new QAction(keys.toString(), owner);
        action->setShortcut(keys);
        owner->addAction(action);
        QObject::connect(action, &QAction::triggered,
                         [this, keys] { acted.append(keys.toString()); });
        return action;
    }
    bool takesInputMethod() const {
        QInputMethodQueryEvent query(Qt::ImEnabled);
        QCoreApplication::sendEvent(editor, &query);
        return query.value(Qt::ImEnabled).toBool();
    }
    QStringList takeActed() { return std::exchange(acted, {}); }

    // Higher than the window.
    static inline const QString Draft = QStringLiteral("draft\n").repeated(50);
    QPlainTextEdit *editor;
    QPushButton *below;
    int presses = 0;
    QStringList acted;
};

TEST_P(CoveredContentTest, WhatIsTypedDoesNotReachTheEditor) {
    const QStringList keys{QStringLiteral("x"),      QStringLiteral("ctrl+a"),
                           QStringLiteral("Delete"), QStringLiteral("BackSpace"),
                           QStringLiteral("ctrl+v"), QStringLiteral("Menu"),
                           QStringLiteral("Tab"),    QStringLiteral("space")};
    QGuiApplication::clipboard()->setText(QStringLiteral("pasted"));
    QObject::connect(editor, &QWidget::customContextMenuRequested, note("menu"));
    show();
    type(keys);
    EXPECT_TRUE(eventually([this] { return clicked == QStringList{QStringLiteral("close")}; }));
    EXPECT_EQ(editor->toPlainText(), Draft);
    EXPECT_FALSE(editor->textCursor().hasSelection());

    // Nor when the host sets its focus again and again, until the overlay gives up.
    QObject stubbornHost;
    QObject::connect(qApp, &QApplication::focusChanged, &stubbornHost, [this] {
        QMetaObject::invokeMethod(
            editor, [this] { editor->setFocus(); }, Qt::QueuedConnection);
    });
    editor->setFocus();
    ASSERT_TRUE(eventually([this] { return editor->hasFocus(); }));
    quietly(50);
    type(keys);
    EXPECT_TRUE(eventually([this] { return clicked.size() == 2; }));
    QInputMethodEvent composed;
    composed.setCommitString(QStringLiteral("é"));
    QCoreApplication::sendEvent(editor, &composed);
    EXPECT_EQ(editor->toPlainText(), Draft);
    EXPECT_EQ(acted, QStringList());
    EXPECT_FALSE(takesInputMethod());

    overlay->setHiddenNow(true);
    type({QStringLiteral("ctrl+a"), QStringLiteral("Delete")});
    EXPECT_TRUE(eventually([this] { return editor->toPlainText().isEmpty(); }));
    EXPECT_TRUE(takesInputMethod());
}

TEST_P(CoveredContentTest, TheWheelAndWhatIsDroppedDoNotReachTheEditor) {
    show();
    const QPoint center = content->rect().center();
    const QPoint global = content->mapToGlobal(center);
    runOnDisplay(QStringLiteral("xdotool"),
                 {QStringLiteral("mousemove"), QString::number(global.x()),
                  QString::number(global.y()), QStringLiteral("click"), QStringLiteral("5")});
    QMimeData text;
    text.setText(QStringLiteral("dropped"));
    // As Qt delivers what is dropped on a native child window: to the host's window.
    const QPoint inWindow = content->mapTo(window.get(), center);
    QDragEnterEvent enter(inWindow, Qt::CopyAction, &text, Qt::LeftButton, {});
    QCoreApplication::sendEvent(window->windowHandle(), &enter);
    QDragMoveEvent move(inWindow, Qt::CopyAction, &text, Qt::LeftButton, {});
    QCoreApplication::sendEvent(window->windowHandle(), &move);
    EXPECT_FALSE(move.isAccepted());
    QDropEvent drop(inWindow, Qt::CopyAction, &text, Qt::LeftButton, {});
    QCoreApplication::sendEvent(window->windowHandle(), &drop);
    editor->setToolTip(QStringLiteral("tip"));
    QHelpEvent tip(QEvent::ToolTip, QPoint(5, 5), global);
    QCoreApplication::sendEvent(view, &tip);
    EXPECT_FALSE(QToolTip::isVisible());
    clickOnDisplay(content, overlay->frame().topLeft() + close->geometry().center());
    EXPECT_TRUE(eventually([this] { return !clicked.isEmpty(); }));
    EXPECT_EQ(editor->verticalScrollBar()->value(), 0);
    EXPECT_EQ(editor->toPlainText(), Draft);
}

TEST_P(CoveredContentTest, OnlyShortcutsOfTheApplicationAct) {
    QMenu *menu = window->menuBar()->addMenu(QStringLiteral("&File"));
    QObject::connect(menu, &QMenu::aboutToShow, note("File"));
    addAction(menu, QKeySequence(QStringLiteral("Ctrl+S")));
    addAction(menu, QKeySequence(QStringLiteral("Ctrl+Q")));
    addAction(menu, QKeySequence(QStringLiteral("Ctrl+Shift+X")))->setMenuRole(QAction::QuitRole);
    addAction(menu, QKeySequence(QStringLiteral("Ctrl+K, Ctrl+C")));
    addShortcut(window.get(), QKeySequence(QStringLiteral("Ctrl+D")), Qt::WindowShortcut);
    addShortcut(content, QKeySequence(QStringLiteral("Ctrl+E")), Qt::WidgetWithChildrenShortcut);
    addShortcut(below, QKeySequence(QStringLiteral("Ctrl+G")), Qt::WidgetShortcut);
    addShortcut(window.get(), QKeySequence(QStringLiteral("Ctrl+L")), Qt::ApplicationShortcut);
    for (const char *own : {"Space", "Tab", "Esc"})
        addShortcut(window.get(), QKeySequence(QLatin1String(own)), Qt::WindowShortcut);
    const auto pressAll = [this] {
        for (const int key : {Qt::Key_S, Qt::Key_K, Qt::Key_C, Qt::Key_D, Qt::Key_E, Qt::Key_G,
                              Qt::Key_L, Qt::Key_Q})
            pressShortcut(key, Qt::ControlModifier);
        pressShortcut(Qt::Key_X, Qt::ControlModifier | Qt::ShiftModifier);
    };
    const QStringList everywhere{QStringLiteral("Ctrl+L"), QStringLiteral("Ctrl+Q"),
                                 QStringLiteral("Ctrl+Shift+X")};
    show();
    handleEvents();
    pressAll();
    pressShortcut(Qt::Key_F, Qt::AltModifier);
    EXPECT_FALSE(QApplication::activePopupWidget());
    pressShortcut(Qt::Key_Alt, {});
    for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_Tab, Qt::Key_Space})
        press(key);
    EXPECT_EQ(takeActed(), everywhere);
    EXPECT_EQ(clicked, QStringList{QStringLiteral("close")}) << "these keys are the overlay's";

    // A widget that is not covered keeps the keys that it uses, and no others.
    search->setFocus();
    search->setText(QStringLiteral("word"));
    pressShortcut(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(search->selectedText(), QStringLiteral("word"));
    pressAll();
    EXPECT_EQ(takeActed(), everywhere);

    // A tool window of the covered window has shortcuts of its own, and those of its parent.
    QWidget tools(window.get(), Qt::Tool);
    addShortcut(&tools, QKeySequence(QStringLiteral("Ctrl+T")), Qt::WindowShortcut);
    tools.show();
    ASSERT_TRUE(activate(&tools));
    QTest::keyClick(tools.windowHandle(), Qt::Key_D, Qt::ControlModifier);
    QTest::keyClick(tools.windowHandle(), Qt::Key_T, Qt::ControlModifier);
    EXPECT_EQ(takeActed(), QStringList{QStringLiteral("Ctrl+T")});

    QWidget other;
    addShortcut(&other, QKeySequence(QStringLiteral("Ctrl+S")), Qt::WindowShortcut);
    other.show();
    ASSERT_TRUE(activate(&other));
    QTest::keyClick(other.windowHandle(), Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(takeActed(), QStringList{QStringLiteral("Ctrl+S")});

    overlay->setHiddenNow(true);
    tools.hide();
    other.hide();
    ASSERT_TRUE(activate(window.get()));
    below->setFocus();
    pressAll();
    EXPECT_EQ(takeActed().size(), 8) << "all of them, and the one of two keys once";
}

TEST_P(CoveredContentTest, TheSecondClickOfADoubleClickDoesNotFallThrough) {
    QObject::connect(close, &QPushButton::clicked, [this] { overlay->setHidden(true); });
    const auto clickThere = [this](const char *button, int times) {
        const QPoint place = below->mapToGlobal(below->rect().center());
        runOnDisplay(QStringLiteral("xdotool"),
                     {QStringLiteral("mousemove"), QString::number(place.x()),
                      QString::number(place.y()), QStringLiteral("click"),
                      QStringLiteral("--repeat"), QString::number(times), QStringLiteral("--delay"),
                      QStringLiteral("60"), QLatin1String(button)});
    };
    // At once, and after the overlay has been removed for good.
    for (const bool isRemoved : {false, true}) {
        show();
        clickThere("1", 1);
        ASSERT_TRUE(eventually([this] { return overlay->isHidden(); }));
        if (isRemoved)
            overlay.reset();
        clickThere("1", 2);
        clickThere("5", 1);
        quietly(100);
        EXPECT_EQ(presses, 0);
        EXPECT_EQ(editor->verticalScrollBar()->value(), 0);
        time.advance(0.3); // the fade is over
        clickThere("1", 1);
        quietly(100);
        EXPECT_EQ(presses, 0);
        time.advance(QApplication::doubleClickInterval() / 1000.0);
        EXPECT_EQ(time.timerCount(), 0u);
        clickThere("1", 1);
        EXPECT_TRUE(eventually([this] { return std::exchange(presses, 0) == 1; }));
    }
}

TEST_P(CoveredContentTest, TheHostMayDestroyTheWindowAfterTheClick) {
    show();
    QObject::connect(close, &QPushButton::clicked, [this] { overlay->setHidden(true); });
    clickOnDisplay(content, close->geometry().center());
    ASSERT_TRUE(eventually([this] { return overlay->isHidden(); }));
    window.reset();
    EXPECT_EQ(time.timerCount(), 0u);
}

TEST_P(CoveredContentTest, TheFocusedControlHasAFocusRing) {
    auto *control = new CloseButtonCell(view);
    control->setFocusPolicy(Qt::TabFocus);
    control->setGeometry(100, 10, 40, 40);
    show();
    handleEvents();
    const QImage without = control->grab().toImage();
    press(Qt::Key_Backtab);
    EXPECT_NE(control->grab().toImage(), without);
    press(Qt::Key_Tab);
    EXPECT_EQ(control->grab().toImage(), without);
    press(Qt::Key_Backtab);
    QWidget other;
    other.show();
    ASSERT_TRUE(activate(&other));
    EXPECT_EQ(control->grab().toImage(), without) << "its window is not active";
}

INSTANTIATE_TEST_SUITE_P(Kinds, CoveredContentTest,
                         ::testing::Values(Overlay::Kind::Automatic, Overlay::Kind::Native),
                         [](const ::testing::TestParamInfo<Overlay::Kind> &kind) {
                             return kind.param == Overlay::Kind::Native ? "Native" : "Plain";
                         });

} // namespace velmora::test
