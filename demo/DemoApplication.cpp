// SPDX-License-Identifier: Apache-2.0
#include "demo/DemoApplication.h"

#include "demo/JournalWindow.h"
#include "demo/PurchaseSheet.h"

#include <QtWidgets/QApplication>

namespace demo {

namespace {
constexpr QPoint Cascade(40, 40);
}

DemoApplication::~DemoApplication() {
    for (const auto &window : std::as_const(m_windows))
        delete window;
}

bool DemoApplication::startServer(const QString &campaignFolder) {
    return m_server.start(campaignFolder);
}

JournalWindow *DemoApplication::openWindow() {
    if (!m_advertising) {
        m_advertising = std::make_unique<Advertising>(m_server, m_log, m_links, m_times);
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
    for (const auto &window : std::as_const(m_windows)) {
        if (window)
            window->say(object.isEmpty() ? name : name + QStringLiteral(":  ") + object);
    }
}

} // namespace demo
