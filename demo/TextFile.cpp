// SPDX-License-Identifier: Apache-2.0
#include "demo/TextFile.h"

#include <QtCore/QFile>
#include <QtCore/QJsonDocument>

namespace demo {

QJsonObject TextFile::read(const QString &name) {
    QFile file(QStringLiteral(":/texts/") + name);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("texts/%s is not compiled in", qPrintable(name));
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(file.readAll(), &error);
    if (!document.isObject())
        qFatal("texts/%s is no JSON object: %s", qPrintable(name), qPrintable(error.errorString()));
    return document.object();
}

} // namespace demo
