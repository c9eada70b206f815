// SPDX-License-Identifier: Apache-2.0
#include "RemoveAdsButton.h"

#include "FlippedCoordinates.h"
#include "FocusRing.h"
#include "ProcessRoot.h"
#include "ReducedMotion.h"
#include "TextSizes.h"

#include <QtGui/QFontDatabase>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>
#include <QtWidgets/QApplication>

#include <algorithm>
#include <cmath>

namespace velmora {

namespace {

constexpr int TitleLayout = Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap;
constexpr double CircleTitlePoints = 13;

QColor green(double alpha) {
    return QColor::fromRgbF(79 / 255.0f, 177 / 255.0f, 7 / 255.0f, float(alpha));
}

// An invalid colour stays invalid.
QColor withAlpha(QColor color, double alpha) {
    if (color.isValid())
        color.setAlphaF(float(alpha));
    return color;
}

QPainterPath rounded(const QRectF &frame, double radius) {
    QPainterPath path;
    if (!frame.isEmpty())
        path.addRoundedRect(frame, std::max(0.0, radius), std::max(0.0, radius));
    return path;
}

QPainterPath ellipse(const QRectF &frame) {
    QPainterPath path;
    if (!frame.isEmpty())
        path.addEllipse(frame);
    return path;
}

} // namespace

RemoveAdsButton::RemoveAdsButton(QWidget *parent)
    : QAbstractButton(parent),
      m_titleFont(QApplication::font()),
      m_shine(this, [this] { restShine(); }) {
    setFocusPolicy(Qt::StrongFocus);
    connect(&ReducedMotion::current(), &ReducedMotion::changed, this, [this] {
        restShine();
        update();
    });
}

RemoveAdsButton::~RemoveAdsButton() {
    restShine();
}

RemoveAdsButton *RemoveAdsButton::make(QWidget *parent) {
    auto *button = new RemoveAdsButton(parent);
    button->m_titleLeading = 10.0;
    button->m_isAnimation = true;
    button->m_borderColor = Qt::transparent;
    button->m_topColor = QColor(0, 200, 0);
    button->m_bottomColor = QColor(0, 150, 0);
    button->m_stringFont = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
    button->m_stringFont.setPixelSize(24);
    button->m_stringColor = Qt::black;
    return button;
}

void RemoveAdsButton::setTitleFont(const QFont &font) {
    m_titleFont = font;
    update();
}

void RemoveAdsButton::setFrameSize(QSize size) {
    if (m_isAutoWidth)
        size = {int(std::ceil(titleSize().width() + 2 * m_titleLeading)), height()};
    resize(size);
}

QSize RemoveAdsButton::sizeHint() const {
    const QSizeF title = titleSize();
    return {int(std::ceil(title.width() + 2 * m_titleLeading)), int(std::ceil(title.height() * 2))};
}

QPainterPath RemoveAdsButton::getPath(double x, double width, double wbreak) const {
    return ShineAnimation::band(x, width, wbreak, height());
}

RemoveAdsButton::Look RemoveAdsButton::look() const {
    return {
        .density = devicePixelRatioF(),
        .resolution = logicalDpiY(),
        .size = size(),
        .isDown = isDown(),
        .isEnabled = isEnabled(),
        .isGradient = m_isGradient,
        .isImage = m_isImage,
        .isCircle = m_isCircle,
        .isAnimation = m_isAnimation,
        .border = m_border,
        .cornerRadius = m_cornerRadius,
        .titleLeading = m_titleLeading,
        .borderColor = m_borderColor,
        .topColor = m_topColor,
        .bottomColor = m_bottomColor,
        .titleColor = titleColor(),
        .titleFont = drawnFont(),
        .title = text(),
        .iconKey = icon().cacheKey(),
    };
}

// What any button has drawn last. In several windows they mostly look the same.
class RemoveAdsButton::LastPicture : public QObject {
public:
    LastPicture() {
        connect(qApp, &QGuiApplication::fontDatabaseChanged, this, [this] { picture = {}; });
    }

    Picture picture;
};

void RemoveAdsButton::updatePicture() {
    const Look wanted = look();
    if (m_picture.look == wanted)
        return;
    Picture &last = ProcessRoot::get<LastPicture>().picture;
    if (last.look != wanted)
        last = draw();
    m_picture = last;
}

RemoveAdsButton::Picture RemoveAdsButton::draw() {
    QPixmap face((QSizeF(size()) * devicePixelRatioF()).toSize());
    face.setDevicePixelRatio(devicePixelRatioF());
    face.fill(Qt::transparent);
    Picture picture{.look = look(), .face = face, .title = face};
    QPainter drawing(&picture.face);
    drawing.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    drawRect(drawing);
    QPainter title(&picture.title);
    title.setRenderHint(QPainter::Antialiasing);
    title.setClipPath(facePath());
    drawTitle(title);
    return picture;
}

void RemoveAdsButton::paintEvent(QPaintEvent *) {
    updatePicture();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.drawPixmap(0, 0, m_picture.face);
    if (!m_isAllDraw) {
        drawPath();
        m_isAllDraw = true;
    }
    painter.save();
    painter.setClipPath(outlinePath());
    m_shine.draw(painter);
    painter.restore();
    // Over the shine, which is nearly as bright as white.
    painter.drawPixmap(0, 0, m_picture.title);
    FocusRing::draw(*this, painter, m_isCircle ? width() / 2.0 : m_cornerRadius);
}

void RemoveAdsButton::resizeEvent(QResizeEvent *event) {
    QAbstractButton::resizeEvent(event);
    // The width follows the title after QWidget::resize(), too, not only after setFrameSize().
    if (m_isAutoWidth)
        setFrameSize(size());
}

void RemoveAdsButton::hideEvent(QHideEvent *event) {
    QAbstractButton::hideEvent(event);
    restShine();
}

QPainterPath RemoveAdsButton::facePath() const {
    const QRectF bounds(rect());
    const bool bordered = m_border > 0;
    const QRectF face =
        bordered ? bounds.adjusted(m_border, m_border, -m_border, -m_border) : bounds;
    if (m_isCircle)
        return ellipse(face);
    return rounded(face, bordered ? m_cornerRadius - 2.0 : m_cornerRadius);
}

// The shine is clipped to this path.
QPainterPath RemoveAdsButton::outlinePath() const {
    return m_isCircle ? facePath() : rounded(rect(), m_cornerRadius);
}

void RemoveAdsButton::drawRect(QPainter &painter) {
    const QPainterPath face = facePath();
    painter.save();
    if (m_border > 0) {
        // A shining circle is drawn without its border: all of it lies outside the ellipse.
        if (m_borderColor.isValid() && !(m_isCircle && m_isAnimation))
            painter.fillPath(rounded(rect(), m_cornerRadius), m_borderColor);
        painter.setClipPath(rounded(rect(), m_cornerRadius));
    }
    drawFace(painter, face);
    painter.setClipPath(face);
    if (m_isImage)
        drawImage(painter,
                  FlippedCoordinates(height()).rect(4 * m_border, 2, height() - 2, height() - 2));
    painter.restore();
}

void RemoveAdsButton::drawFace(QPainter &painter, const QPainterPath &face) const {
    painter.fillPath(face, green(isDown() ? 0.8 : 1));
    const double alpha = !isEnabled() ? 0.3 : isDown() ? 0.7 : 1;
    if (m_isImage) {
        painter.fillPath(face, green(isDown() ? 0.7 : 1));
    } else if (m_isGradient) {
        if (!m_topColor.isValid() || !m_bottomColor.isValid())
            return;
        const QRectF bounds = face.boundingRect();
        QLinearGradient gradient(bounds.topLeft(), bounds.bottomLeft());
        gradient.setColorAt(0, alpha < 1 ? withAlpha(m_topColor, alpha) : m_topColor);
        gradient.setColorAt(1, alpha < 1 ? withAlpha(m_bottomColor, alpha) : m_bottomColor);
        painter.fillPath(face, gradient);
    } else if (m_isCircle && m_topColor.isValid()) {
        painter.fillPath(face, isDown() ? withAlpha(m_topColor, 0.7) : m_topColor);
    }
}

void RemoveAdsButton::drawImage(QPainter &painter, const QRectF &frame) const {
    if (icon().isNull() || frame.isEmpty())
        return;
    const QPixmap image = icon().pixmap(frame.size().toSize(), devicePixelRatioF());
    painter.drawPixmap(frame, image, QRectF(image.rect()));
}

void RemoveAdsButton::drawTitle(QPainter &painter) const {
    const QColor color = titleColor();
    if (text().isEmpty() || !color.isValid())
        return;
    const bool beside = m_isImage && !m_isCircle;
    const double width = this->width() - (m_isImage ? 1 : 2) * m_titleLeading;
    // The reading direction of the title, which may be in another language than the application.
    painter.setLayoutDirection(Qt::LayoutDirectionAuto);
    painter.setFont(drawnFont());
    painter.setPen(color);
    // The height that the title needs in this width; it may wrap.
    const double titleHeight =
        painter.boundingRect(QRectF(0, 0, width, 0), TitleLayout | Qt::TextDontClip, text())
            .height();
    const double y = (height() - titleHeight) / 2 + (m_isCircle ? 0 : 1.75);
    painter.drawText(FlippedCoordinates(height()).rect(beside ? height() : m_titleLeading, y, width,
                                                       titleHeight),
                     TitleLayout | Qt::TextDontClip, text());
}

QFont RemoveAdsButton::drawnFont() const {
    QFont wanted = m_titleFont;
    if (m_isCircle)
        wanted.setPixelSize(int(CircleTitlePoints));
    return wanted;
}

QSizeF RemoveAdsButton::titleSize() const {
    return TextSizes::onOneLine(drawnFont(), text(), *this);
}

QColor RemoveAdsButton::titleColor() const {
    // White on the green of a pressed face would not be readable.
    return isEnabled() ? m_stringColor : withAlpha(m_stringColor, 0.8);
}

bool RemoveAdsButton::mayShine() const {
    return m_isAnimation && !ReducedMotion::current().isOn() &&
           ShineAnimation::isReadableOnIt(titleColor());
}

void RemoveAdsButton::drawPath() {
    if (m_animationTimer)
        m_animationTimer->invalidate();
    if (!mayShine())
        return;
    m_shine.start();
    m_animationTimer =
        Timer::scheduled(ShineAnimation::Period, Timer::Kind::OneShot, [this] { drawPath(); });
}

// Stops the shine while the button cannot be seen; the next redraw starts it again.
void RemoveAdsButton::restShine() {
    m_shine.stop();
    if (m_animationTimer)
        m_animationTimer->invalidate();
    m_isAllDraw = false;
}

} // namespace velmora
