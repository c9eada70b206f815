// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QString>
#include <QtCore/QUrl>

#include <ostream>

// Prints Qt's values in the messages of failed comparisons.

inline void PrintTo(const QString &text, std::ostream *out) {
    *out << '"' << text.toStdString() << '"';
}

inline void PrintTo(const QByteArray &bytes, std::ostream *out) {
    *out << '"' << bytes.toStdString() << '"';
}

inline void PrintTo(const QUrl &url, std::ostream *out) {
    *out << url.toString().toStdString();
}

inline void PrintTo(const QJsonObject &object, std::ostream *out) {
    *out << QJsonDocument(object).toJson(QJsonDocument::Compact).toStdString();
}

inline void PrintTo(const QJsonArray &array, std::ostream *out) {
    *out << QJsonDocument(array).toJson(QJsonDocument::Compact).toStdString();
}
