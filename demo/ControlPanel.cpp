#include "demo/ControlPanel.h"

#include "demo/Advertising.h"
#include "demo/DemoServer.h"
#include "demo/EventDelegate.h"
#include "demo/EventLog.h"
#include "demo/JournalWindow.h"
#include "demo/LinkOpener.h"
#include "demo/Page.h"
#include "demo/Theme.h"

#include <Velmora/Velmora.h>

#include <QtGui/QPainter>
#include <QtWidgets/QButtonGroup>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QGridLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QListView>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QSlider>
#include <QtWidgets/QVBoxLayout>

namespace demo {

namespace {

QString look() {
    return QStringLiteral(
               "QPushButton { background: white; border: 1px solid %1; border-radius: 6px;"
               " padding: 5px 8px; color: %2; }"
               "QPushButton:hover { border-color: %3; }"
               "QPushButton:pressed, QPushButton:checked { background: %3; border-color: %3;"
               " color: white; }"
               "QPushButton:focus { border-color: %3; }"
               "QSlider::groove:horizontal { height: 4px; border-radius: 2px; background: %1; }"
               "QSlider::handle:horizontal { width: 14px; margin: -6px 0; border-radius: 7px;"
               " background: white; border: 1px solid %4; }"
               "QSlider::handle:horizontal:hover, QSlider::handle:horizontal:focus {"
               " border-color: %3; }"
               "QListView { background: white; border: 1px solid %1; border-radius: 6px; }")
        .arg(theme::Line.darker(106).name(), theme::Ink.name(), theme::Accent.name(),
             theme::Line.darker(140).name());
}

QLabel *newCaption(const QString &text) {
    auto *caption = new QLabel(text);
    caption->setFont(theme::label(11));
    QPalette palette = caption->palette();
    palette.setColor(QPalette::WindowText, theme::InkSoft);
    caption->setPalette(palette);
    return caption;
}

} // namespace

ControlPanel::ControlPanel(Advertising &advertising, JournalWindow *window)
    : m_advertising(advertising), m_window(window) {
    setFixedWidth(Width);
    setStyleSheet(look());
    auto *title = new QLabel(QStringLiteral("Advertising"));
    title->setFont(theme::heading(18));
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 14, 16, 14);
    layout->setSpacing(12);
    layout->addWidget(title);
    layout->addWidget(newPlacement());
    layout->addWidget(newActions());
    layout->addWidget(newServer());
    layout->addWidget(newLog(), 1);
}

QAbstractButton *ControlPanel::newButton(const QString &text, const QString &name) {
    auto *button = new QPushButton(text);
    button->setObjectName(name);
    button->setFocusPolicy(Qt::TabFocus);
    return button;
}

QSlider *ControlPanel::newSlider(QGridLayout *grid, int row, const QString &text, int least,
                                 int most) {
    auto *slider = new QSlider(Qt::Horizontal);
    slider->setRange(least, most);
    slider->setMinimumHeight(20);
    slider->setAccessibleName(text);
    auto *value = new QLabel(QStringLiteral("0"));
    value->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    value->setMinimumWidth(32);
    grid->addWidget(new QLabel(text), row, 0);
    grid->addWidget(slider, row, 1);
    grid->addWidget(value, row, 2);
    connect(slider, &QSlider::valueChanged, this, [this, value](int inset) {
        value->setNum(inset);
        setInsets();
    });
    return slider;
}

QWidget *ControlPanel::newPlacement() {
    auto *box = new QWidget;
    auto *grid = new QGridLayout(box);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setVerticalSpacing(8);
    grid->addWidget(newCaption(QStringLiteral("Placement")), 0, 0, 1, 3);
    QAbstractButton *large = newButton(QStringLiteral("Large"), QStringLiteral("largeButton"));
    QAbstractButton *small = newButton(QStringLiteral("Small"), QStringLiteral("smallButton"));
    auto *sizes = new QButtonGroup(box);
    auto *pair = new QHBoxLayout;
    pair->setSpacing(6);
    for (QAbstractButton *button : {large, small}) {
        button->setCheckable(true);
        sizes->addButton(button);
        pair->addWidget(button);
    }
    large->setChecked(true);
    connect(large, &QAbstractButton::clicked, this, [this] { setHeight(true); });
    connect(small, &QAbstractButton::clicked, this, [this] { setHeight(false); });
    grid->addLayout(pair, 1, 0, 1, 3);
    m_bottom = newSlider(grid, 2, QStringLiteral("Bottom"), 0, 200);
    m_centre = newSlider(grid, 3, QStringLiteral("Centre"), -200, 200);
    m_everyWindow = new QCheckBox(QStringLiteral("In every window"));
    grid->addWidget(m_everyWindow, 4, 0, 1, 3);
    return box;
}

QWidget *ControlPanel::newActions() {
    auto *box = new QWidget;
    auto *grid = new QGridLayout(box);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(6);
    grid->addWidget(newCaption(QStringLiteral("Banner")), 0, 0, 1, 2);
    const auto add = [&](int row, int column, const char *text, const char *name, auto action) {
        QAbstractButton *button = newButton(QString::fromLatin1(text), QString::fromLatin1(name));
        grid->addWidget(button, row, column);
        connect(button, &QAbstractButton::clicked, this, action);
    };
    add(1, 0, "Hide", "hideButton", [this] { setHidden(true); });
    add(1, 1, "Show", "showButton", [this] { setHidden(false); });
    add(2, 0, "Remove ads", "removeButton", [this] { m_advertising.removeAds(); });
    add(2, 1, "Reset ads", "resetButton", [this] { m_advertising.resetAds(); });
    QAbstractButton *window =
        newButton(QStringLiteral("Open a second window"), QStringLiteral("windowButton"));
    grid->addWidget(window, 3, 0, 1, 2);
    connect(window, &QAbstractButton::clicked, this, &ControlPanel::secondWindowWanted);
    return box;
}

QWidget *ControlPanel::newServer() {
    auto *box = new QWidget;
    auto *layout = new QVBoxLayout(box);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(6);
    layout->addWidget(newCaption(QStringLiteral("Surroundings")));
    auto *server = new QCheckBox(QStringLiteral("Ad server answers"));
    server->setChecked(m_advertising.server().isRunning());
    connect(server, &QCheckBox::toggled, this,
            [this](bool on) { m_advertising.server().setRunning(on); });
    auto *browser = new QCheckBox(QStringLiteral("Open links in the browser"));
    browser->setChecked(m_advertising.links().opensBrowser());
    connect(browser, &QCheckBox::toggled, this,
            [this](bool on) { m_advertising.links().setOpensBrowser(on); });
    layout->addWidget(server);
    layout->addWidget(browser);
    return box;
}

QWidget *ControlPanel::newLog() {
    auto *box = new QWidget;
    auto *layout = new QVBoxLayout(box);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(6);
    layout->addWidget(newCaption(QStringLiteral("Events")));
    auto *view = new QListView;
    view->setModel(&m_advertising.log());
    view->setItemDelegate(new EventDelegate(view));
    view->setSelectionMode(QAbstractItemView::NoSelection);
    view->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    view->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    view->setMinimumHeight(64);
    view->setAccessibleName(QStringLiteral("Events"));
    connect(&m_advertising.log(), &EventLog::recorded, view, &QListView::scrollToBottom,
            Qt::QueuedConnection);
    layout->addWidget(view);
    return box;
}

void ControlPanel::setHeight(bool large) {
    if (m_everyWindow->isChecked())
        large ? Velmora::setBannersLargeImage() : Velmora::setBannersSmallImage();
    else if (large)
        Velmora::setBannerLargeImageToWindow(m_window);
    else
        Velmora::setBannerSmallImageToWindow(m_window);
}

void ControlPanel::setInsets() {
    if (m_everyWindow->isChecked()) {
        Velmora::setBannersBottomInset(m_bottom->value());
        Velmora::setBannersCenterXInset(m_centre->value());
    } else {
        Velmora::setBannerBottomInset(m_bottom->value(), m_window);
        Velmora::setBannerCenterXInset(m_centre->value(), m_window);
    }
}

void ControlPanel::setHidden(bool hidden) {
    velmora::ViewController content(m_window->page());
    Velmora::setBannerHidden(hidden, &content);
}

void ControlPanel::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    painter.fillRect(rect(), theme::PaperShade);
    painter.fillRect(QRect(0, 0, 1, height()), theme::Line);
}

} // namespace demo
