// SPDX-License-Identifier: Apache-2.0
#include "InterfaceReader.h"

#include <QtGui/QColor>

#include <utility>

namespace velmora {

namespace {

QString attribute(const QXmlStreamReader &xml, const char *name) {
    return xml.attributes().value(QLatin1String(name)).toString();
}

} // namespace

InterfaceReader::InterfaceReader(QIODevice &file, Factory factory)
    : m_xml(&file), m_factory(std::move(factory)) {}

std::unique_ptr<QWidget> InterfaceReader::read() {
    std::unique_ptr<QWidget> root;
    m_xml.readNextStartElement(); // <ui>
    while (m_xml.readNextStartElement()) {
        if (!root && m_xml.name() == QLatin1String("widget"))
            root = readWidget(nullptr);
        else if (root && m_xml.name() == QLatin1String("tabstops"))
            readTabOrder(*root);
        else
            m_xml.skipCurrentElement();
    }
    if (m_xml.hasError())
        root.reset();
    return root;
}

std::unique_ptr<QWidget> InterfaceReader::readWidget(QWidget *parent) {
    std::unique_ptr<QWidget> widget(m_factory(attribute(m_xml, "class"), parent));
    if (!widget) {
        m_xml.skipCurrentElement();
        return nullptr;
    }
    widget->setObjectName(attribute(m_xml, "name"));
    while (m_xml.readNextStartElement()) {
        if (m_xml.name() == QLatin1String("widget"))
            readWidget(widget.get()).release(); // belongs to its parent
        else if (m_xml.name() == QLatin1String("property"))
            readProperty(*widget);
        else
            m_xml.skipCurrentElement();
    }
    return widget;
}

void InterfaceReader::readProperty(QWidget &widget) {
    const QByteArray name = attribute(m_xml, "name").toLatin1();
    if (m_xml.readNextStartElement()) {
        widget.setProperty(name.constData(), readValue());
        m_xml.skipCurrentElement();
    }
}

// QObject::setProperty() turns the text of an enumerator into its value.
QVariant InterfaceReader::readValue() {
    const QString type = m_xml.name().toString();
    if (type == QLatin1String("color"))
        return readColor();
    const QString text = m_xml.readElementText();
    if (type == QLatin1String("bool"))
        return text == QLatin1String("true");
    if (type == QLatin1String("double"))
        return text.toDouble();
    if (type == QLatin1String("number") || type == QLatin1String("UInt"))
        return text.toInt();
    return text;
}

QColor InterfaceReader::readColor() {
    QColor color(Qt::black);
    while (m_xml.readNextStartElement()) {
        const QString part = m_xml.name().toString();
        const int value = m_xml.readElementText().toInt();
        if (part == QLatin1String("red"))
            color.setRed(value);
        else if (part == QLatin1String("green"))
            color.setGreen(value);
        else if (part == QLatin1String("blue"))
            color.setBlue(value);
    }
    return color;
}

void InterfaceReader::readTabOrder(QWidget &root) {
    QWidget *previous = nullptr;
    while (m_xml.readNextStartElement()) {
        QWidget *next = root.findChild<QWidget *>(m_xml.readElementText());
        if (previous && next)
            QWidget::setTabOrder(previous, next);
        if (next)
            previous = next;
    }
}

} // namespace velmora
