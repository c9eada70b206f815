// SPDX-License-Identifier: Apache-2.0
#include "tests/support/HostLook.h"

#include "tests/support/Waiting.h"

#include <QtCore/QCryptographicHash>
#include <QtWidgets/QApplication>

namespace velmora::test {

HostLook::HostLook() : m_font(QApplication::font()), m_palette(QApplication::palette()) {}

void HostLook::restore() const {
    qApp->setStyleSheet(QString());
    QApplication::setPalette(m_palette);
    QApplication::setFont(m_font);
    QApplication::setLayoutDirection(Qt::LeftToRight);
    handleEvents();
}

QStringList HostLook::styleSheets(const QSize &host) {
    const QString window =
        QStringLiteral(" #host { min-width: %1px; max-width: %1px; min-height: %2px;"
                       " max-height: %2px; padding: 0; border: none; margin: 0 }")
            .arg(host.width())
            .arg(host.height());
    QStringList sheets;
    for (const char *rules :
         {"QWidget { background-color: #222; color: #eee }",
          "* { font: italic 30px monospace; min-width: 300px; max-height: 12px; padding: 20px;"
          " border: 3px solid red }",
          "* { min-height: 700px; max-width: 20px; margin: 9px; background: lime }",
          "QLabel { background: red; font-size: 40px }"
          " QPushButton, QAbstractButton { background: blue; color: red; min-width: 500px;"
          " border-image: none; icon-size: 64px; font-weight: 900 }"
          " QAbstractButton:!hover { border: 8px dotted lime }"})
        sheets.append(QLatin1String(rules) + window);
    return sheets;
}

QPalette HostLook::darkPalette() {
    QPalette dark(QColor(0x30, 0x30, 0x30), QColor(0x20, 0x20, 0x20));
    dark.setColor(QPalette::WindowText, Qt::white);
    dark.setColor(QPalette::ButtonText, Qt::yellow);
    dark.setColor(QPalette::Base, Qt::black);
    dark.setColor(QPalette::Text, Qt::yellow);
    return dark;
}

Sight::Sight(QWidget *view)
    : m_picture(view->grab().toImage()),
      m_place(view->mapTo(view->window(), QPoint()), view->size()) {
    for (const QWidget *part : view->findChildren<QWidget *>()) {
        if (part->isVisibleTo(view))
            m_places.append({part->objectName(), part->geometry()});
    }
}

void PrintTo(const Sight &sight, std::ostream *out) {
    const auto print = [out](const QString &name, const QRect &place) {
        *out << '\n'
             << qPrintable(name) << ' ' << place.x() << ' ' << place.y() << ' ' << place.width()
             << 'x' << place.height();
    };
    print(QStringLiteral("view"), sight.m_place);
    for (const auto &[name, place] : sight.m_places)
        print(name, place);
    *out << "\npicture "
         << QCryptographicHash::hash(
                QByteArrayView(sight.m_picture.constBits(), sight.m_picture.sizeInBytes()),
                QCryptographicHash::Md5)
                .toHex()
                .constData();
}

} // namespace velmora::test
