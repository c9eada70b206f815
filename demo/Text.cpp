// SPDX-License-Identifier: Apache-2.0
#include "demo/Text.h"

#include "demo/TextFile.h"

#include <QtCore/QHash>
#include <QtCore/QMetaEnum>

namespace demo {

namespace {

QHash<int, QString> readTexts() {
    QJsonObject file = TextFile::read(QStringLiteral("interface.json"));
    const auto keys = QMetaEnum::fromType<Text::Key>();
    QHash<int, QString> texts;
    for (int i = 0; i < keys.keyCount(); ++i) {
        const QString text = file.take(QLatin1String(keys.key(i))).toString();
        if (text.isEmpty())
            qFatal("texts/interface.json has no text for %s", keys.key(i));
        texts.insert(keys.value(i), text);
    }
    if (!file.isEmpty())
        qFatal("texts/interface.json has a text for the unknown key %s",
               qPrintable(file.begin().key()));
    return texts;
}

} // namespace

QString Text::of(Key key) {
    static const QHash<int, QString> texts = readTexts();
    return texts.value(key);
}

} // namespace demo
