// SPDX-License-Identifier: Apache-2.0
#include "demo/DemoApplication.h"

#include "demo/AppIcon.h"
#include "demo/JournalWindow.h"
#include "demo/Options.h"
#include "demo/PurchaseSheet.h"
#include "demo/Text.h"
#include "demo/Theme.h"

#include <QtCore/QProcess>
#include <QtWidgets/QApplication>

namespace demo {

namespace {
constexpr QPoint Cascade(40, 40); // from one window to the next
}

DemoApplication::~DemoApplication() {
    for (const auto &window : std::as_const(m_windows))
        delete window;
}

void DemoApplication::setUp(QApplication &application) {
    QApplication::setOrganizationName(QStringLiteral("Tidewick"));
    QApplication::setApplicationName(QStringLiteral("tidewick"));
    QApplication::setApplicationDisplayName(Text::of(Text::ApplicationName));
    QApplication::setWindowIcon(AppIcon::icon());
    theme::applyTo(application);
}

bool DemoApplication::startServer(const QString &campaignFolder) {
    return m_server.start(campaignFolder);
}

void DemoApplication::setOptions(const Options &options) {
    setTimes(options.times);
    m_campaign = options.campaign;
    m_reader.startWith(options.surroundings);
    connect(&m_reader, &Reader::restartWanted, this, &DemoApplication::restart);
}

void DemoApplication::restart() {
    Options options;
    options.campaign = m_campaign;
    options.times = m_advertising->times();
    options.surroundings = m_reader.surroundings();
    QProcess next;
    next.setProcessEnvironment(Surroundings::environmentBeforeStart());
    next.setProgram(QApplication::applicationFilePath());
    next.setArguments(options.arguments());
    if (next.startDetached())
        QApplication::quit();
}

JournalWindow *DemoApplication::openWindow() {
    if (!m_advertising) {
        m_advertising = std::make_unique<Advertising>(m_server, m_log, m_links, m_reader, m_times);
        connect(m_advertising.get(), &Advertising::removalWanted, this,
                &DemoApplication::offerPurchase);
        connect(&m_log, &EventLog::recorded, this, &DemoApplication::showInStatusLine);
    }
    m_windows.removeAll(nullptr);
    auto *window = new JournalWindow(*m_advertising);
    window->setAttribute(Qt::WA_DeleteOnClose);
    connect(window, &JournalWindow::secondWindowWanted, this, [this] { openWindow(); });
    if (!m_windows.isEmpty())
        window->move(m_windows.last()->pos() + Cascade);
    m_windows.append(window);
    window->show();
    m_advertising->addWindow(window);
    return window;
}

void DemoApplication::offerPurchase() {
    QWidget *window = QApplication::activeWindow();
    if (!qobject_cast<JournalWindow *>(window))
        window = m_windows.value(0);
    auto *sheet = new PurchaseSheet(window);
    connect(sheet, &QDialog::accepted, m_advertising.get(), &Advertising::removeAds);
    sheet->open();
}

void DemoApplication::showInStatusLine(const QString &name, const QString &object) {
    const QString words = EventLog::inWords(name);
    for (const auto &window : std::as_const(m_windows)) {
        if (window)
            window->showMessage(object.isEmpty() ? words : words + QStringLiteral(":  ") + object);
    }
}

} // namespace demo
