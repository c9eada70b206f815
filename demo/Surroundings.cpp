// SPDX-License-Identifier: Apache-2.0
#include "demo/Surroundings.h"

#include "demo/Theme.h"

#include <Velmora/Velmora.h>

#include <QtCore/QLocale>
#include <QtWidgets/QApplication>

namespace demo {

QList<std::pair<QString, QString>> Surroundings::languages() {
    QList<std::pair<QString, QString>> languages;
    for (const char *code : {"en", "de", "es", "fr", "it", "ja", "ko", "pt", "ru", "zh"}) {
        QString name = QLocale(QLatin1String(code)).nativeLanguageName();
        name.replace(0, 1, name.at(0).toUpper());
        languages.append({QLatin1String(code), name});
    }
    return languages;
}

const QProcessEnvironment &Surroundings::environmentBeforeStart() {
    static const auto environment = QProcessEnvironment::systemEnvironment();
    return environment;
}

void Surroundings::applyBeforeStart() const {
    environmentBeforeStart();
    if (!language.isEmpty()) {
        // LANGUAGE counts only where the locale is not "C".
        qunsetenv("LC_ALL");
        qunsetenv("LC_MESSAGES");
        qputenv("LANG", "en_US.UTF-8");
        qputenv("LANGUAGE", language.toLatin1());
    }
    if (scale > LeastScale)
        qputenv("QT_SCALE_FACTOR", QByteArray::number(scale));
    if (isDark)
        theme::useDarkColors();
}

void Surroundings::apply() const {
    QApplication::setLayoutDirection(isRightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
    Velmora::setMotion(hasReducedMotion ? Velmora::Motion::Reduced
                                        : Velmora::Motion::FollowsDesktop);
    if (isDark)
        Velmora::setSplashScreenAppearance(Velmora::Appearance::Dark);
}

} // namespace demo
