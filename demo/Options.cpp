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
                       timeOption(WaitKey, Text::HelpWait, byDefault.wait)});
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
    return options;
}

} // namespace demo
