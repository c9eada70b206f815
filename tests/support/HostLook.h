// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QList>
#include <QtCore/QStringList>
#include <QtGui/QFont>
#include <QtGui/QImage>
#include <QtWidgets/QWidget>

#include <ostream>
#include <utility>

namespace velmora::test {

/// Changes the look of the application: style sheet, palette, font, reading direction. Restores it
/// at its end.
class HostLook {
public:
    HostLook();
    ~HostLook() { restore(); }
    HostLook(const HostLook &) = delete;
    HostLook &operator=(const HostLook &) = delete;

    void restore() const;

    /// Style sheets whose rules match the framework's widgets. They leave a window with the object
    /// name "host" at a size.
    static QStringList styleSheets(const QSize &host);
    static QPalette darkPalette();

private:
    QFont m_font;
    QPalette m_palette;
};

/// What a user sees of a view: a picture of it, and where the visible widgets in it are.
class Sight {
public:
    explicit Sight(QWidget *view);
    bool operator==(const Sight &) const = default;
    friend void PrintTo(const Sight &sight, std::ostream *out);

private:
    QImage m_picture;
    QRect m_place;
    QList<std::pair<QString, QRect>> m_places;
};

} // namespace velmora::test
