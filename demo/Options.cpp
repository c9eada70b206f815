// SPDX-License-Identifier: Apache-2.0
#include "demo/Options.h"

#include "demo/Text.h"

#include <QtCore/QCommandLineParser>

#include <cstdio>
#include <cstdlib>

namespace demo {

namespace {

const QString CampaignKey = QStringLiteral("campaign");
const QString DelayKey = QStringLiteral("delay");
const QString LoadTimeKey = QStringLiteral("load-time");
const QString WaitKey = QStringLiteral("wait");
const QString LanguageKey = QStringLiteral("language");
const QString ScaleKey = QStringLiteral("scale");
const QString DarkKey = QStringLiteral("dark");
const QString RightToLeftKey = QStringLiteral("right-to-left");
const QString ReducedMotionKey = QStringLiteral("reduced-motion");

constexpr int LongestLoadTime = 15;
constexpr int OneDay = 24 * 60 * 60;

[[noreturn]] void refuse(const QString &reason) {
    std::fprintf(stderr, "velmora-demo: %s\n", qPrintable(reason));
    std::exit(2);
}

// The value of an option in seconds, or the default where the option is not given.
int seconds(const QCommandLineParser &parser, const QString &name, int byDefault, int most) {
    if (!parser.isSet(name))
        return byDefault;
    bool isNumber = false;
    const int value = parser.value(name).toInt(&isNumber);
    if (!isNumber || value < 0 || value > most)
        refuse(QStringLiteral("--%1 needs whole seconds, 0 to %2").arg(name).arg(most));
    return value;
}

QString language(const QCommandLineParser &parser) {
    const QString wanted = parser.value(LanguageKey);
    QStringList known;
    for (const auto &[code, name] : Surroundings::languages())
        known.append(code);
    if (parser.isSet(LanguageKey) && !known.contains(wanted))
        refuse(
            QStringLiteral("--%1 needs one of %2").arg(LanguageKey, known.join(QLatin1Char(' '))));
    return wanted;
}

double scale(const QCommandLineParser &parser) {
    if (!parser.isSet(ScaleKey))
        return Surroundings().scale;
    bool isNumber = false;
    const double value = parser.value(ScaleKey).toDouble(&isNumber);
    if (!isNumber || !(value >= Surroundings::LeastScale && value <= Surroundings::GreatestScale))
        refuse(QStringLiteral("--%1 needs a number, %2 to %3")
                   .arg(ScaleKey)
                   .arg(Surroundings::LeastScale)
                   .arg(Surroundings::GreatestScale));
    return value;
}

Surroundings surroundings(const QCommandLineParser &parser) {
    Surroundings given;
    given.language = language(parser);
    given.scale = scale(parser);
    given.isDark = parser.isSet(DarkKey);
    given.isRightToLeft = parser.isSet(RightToLeftKey);
    given.hasReducedMotion = parser.isSet(ReducedMotionKey);
    return given;
}

} // namespace

Options Options::fromArguments(const QStringList &arguments) {
    QCommandLineParser parser;
    parser.setApplicationDescription(Text::of(Text::HelpDescription));
    const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")},
                                  Text::of(Text::HelpHelp));
    const SplashTimes byDefault;
    const auto timeOption = [](const QString &key, Text::Key description, int defaultSeconds) {
        return QCommandLineOption(key, Text::of(description).arg(defaultSeconds),
                                  QStringLiteral("seconds"));
    };
    parser.addOptions({help,
                       {CampaignKey, Text::of(Text::HelpCampaign), QStringLiteral("folder")},
                       timeOption(DelayKey, Text::HelpDelay, byDefault.delay),
                       timeOption(LoadTimeKey, Text::HelpLoadTime, byDefault.load),
                       timeOption(WaitKey, Text::HelpWait, byDefault.wait),
                       {LanguageKey, Text::of(Text::HelpLanguage), QStringLiteral("code")},
                       {ScaleKey, Text::of(Text::HelpScale), QStringLiteral("factor")},
                       {DarkKey, Text::of(Text::HelpDark)},
                       {RightToLeftKey, Text::of(Text::HelpRightToLeft)},
                       {ReducedMotionKey, Text::of(Text::HelpReducedMotion)}});
    if (!parser.parse(arguments))
        refuse(parser.errorText());
    if (parser.isSet(help)) {
        std::fputs(qPrintable(parser.helpText()), stdout);
        std::exit(0);
    }
    if (!parser.positionalArguments().isEmpty())
        refuse(QStringLiteral("unexpected argument: %1").arg(parser.positionalArguments().first()));
    Options options;
    options.campaign = parser.isSet(CampaignKey) ? parser.value(CampaignKey)
                                                 : QStringLiteral(DEMO_CAMPAIGN_FOLDER);
    options.times.delay = seconds(parser, DelayKey, byDefault.delay, OneDay);
    options.times.load = seconds(parser, LoadTimeKey, byDefault.load, LongestLoadTime);
    options.times.wait = seconds(parser, WaitKey, byDefault.wait, OneDay);
    options.surroundings = demo::surroundings(parser);
    return options;
}

QStringList Options::arguments() const {
    const auto option = [](const QString &key, const QString &value) {
        return QStringLiteral("--%1=%2").arg(key, value);
    };
    QStringList arguments{option(CampaignKey, campaign),
                          option(DelayKey, QString::number(times.delay)),
                          option(LoadTimeKey, QString::number(times.load)),
                          option(WaitKey, QString::number(times.wait))};
    if (!surroundings.language.isEmpty())
        arguments += option(LanguageKey, surroundings.language);
    arguments += option(ScaleKey, QString::number(surroundings.scale));
    if (surroundings.isDark)
        arguments += QStringLiteral("--") + DarkKey;
    if (surroundings.isRightToLeft)
        arguments += QStringLiteral("--") + RightToLeftKey;
    if (surroundings.hasReducedMotion)
        arguments += QStringLiteral("--") + ReducedMotionKey;
    return arguments;
}

} // namespace demo
