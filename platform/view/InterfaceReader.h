// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QStringList>
#include <QtCore/QVariant>
#include <QtCore/QXmlStreamReader>
#include <QtWidgets/QWidget>

#include <functional>
#include <memory>

namespace velmora {

/// Makes the widgets of a .ui file. Reads what the framework's own files have: widgets without
/// layouts, their properties, and the order of the Tab key. Qt's QUiLoader would do, but its
/// library makes every host load those of Qt OpenGL as well, and it registers all of Qt's widget
/// classes. Main thread only.
class InterfaceReader {
public:
    /// Makes a widget of a class; null when it does not know the class. The element is then left
    /// out with all its children.
    using Factory = std::function<QWidget *(const QString &className, QWidget *parent)>;

    InterfaceReader(QIODevice &file, Factory factory);

    /// The root of the widgets; null when there is none, or the file is no correct XML.
    std::unique_ptr<QWidget> read();
    /// Why read() has returned null.
    QString error() const { return m_xml.errorString(); }

private:
    std::unique_ptr<QWidget> readWidget(QWidget *parent);
    void readProperty(QWidget &widget);
    QVariant readValue();
    QColor readColor();
    void readTabOrder(QWidget &root);

    QXmlStreamReader m_xml;
    const Factory m_factory;
};

} // namespace velmora
