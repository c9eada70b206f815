// SPDX-License-Identifier: Apache-2.0
#include "tests/gallery/ContactSheet.h"

#include <QtCore/QDir>
#include <QtCore/QMap>
#include <QtGui/QPainter>

namespace velmora::test {

namespace {

constexpr QSize Thumbnail(300, 225);
constexpr int Gap = 8;
constexpr int TextHeight = 24;
constexpr int HostsInARow = 2;
constexpr int StagesOfAHost = 4;
constexpr int HostWidth = StagesOfAHost * (Thumbnail.width() + Gap) + 2 * Gap;
constexpr int HostHeight = Thumbnail.height() + TextHeight + Gap;

void drawHost(QPainter &painter, QPoint corner, const QDir &folder, const QStringList &files) {
    QPoint at = corner;
    for (const QString &file : files) {
        const QImage picture =
            QImage(folder.filePath(file))
                .scaled(Thumbnail, Qt::KeepAspectRatio, Qt::SmoothTransformation);
        painter.drawImage(at, picture);
        at.rx() += Thumbnail.width() + Gap;
    }
}

} // namespace

bool writeContactSheet(const QString &path) {
    const QDir folder(path);
    const QString sheetName = QStringLiteral("contact-sheet.png");
    QMap<QString, QStringList> hosts;
    for (const QString &file :
         folder.entryList({QStringLiteral("*.png")}, QDir::Files, QDir::Name)) {
        if (file != sheetName)
            hosts[file.section(QLatin1Char('.'), 0, -3)].append(file);
    }
    const auto rows = int(hosts.size() + HostsInARow - 1) / HostsInARow;
    QImage sheet(HostsInARow * HostWidth, std::max(rows, 1) * HostHeight, QImage::Format_RGB32);
    sheet.fill(Qt::lightGray);
    QPainter painter(&sheet);
    QFont font = painter.font();
    font.setPixelSize(TextHeight * 3 / 4);
    painter.setFont(font);
    int index = 0;
    for (auto host = hosts.cbegin(); host != hosts.cend(); ++host, ++index) {
        const QPoint corner(Gap + index % HostsInARow * HostWidth,
                            Gap + index / HostsInARow * HostHeight);
        drawHost(painter, corner, folder, host.value());
        painter.drawText(
            QRect(corner + QPoint(0, Thumbnail.height()), QSize(HostWidth, TextHeight)),
            Qt::AlignLeft | Qt::AlignVCenter, host.key());
    }
    painter.end();
    return sheet.save(folder.filePath(sheetName));
}

} // namespace velmora::test
