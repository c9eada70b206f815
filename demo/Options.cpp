// SPDX-License-Identifier: Apache-2.0
#include "demo/Options.h"

#include <QtCore/QCommandLineParser>

#include <cstdio>
#include <cstdlib>

namespace demo {

namespace {

const QString CampaignKey = QStringLiteral("campaign");
const QString TourKey = QStringLiteral("tour");
const QString DelayKey = QStringLiteral("delay");
const QString LoadTimeKey = QStringLiteral("load-time");
const QString WaitKey = QStringLiteral("wait");
const QString SceneKey = QStringLiteral("scene");
const QString PictureKey = QStringLiteral("first-picture");
const QString StartedKey = QStringLiteral("tour-started");

[[noreturn]] void end(FILE *stream, const QString &text, int status) {
    std::fputs(qPrintable(text), stream);
    std::exit(status);
}

QCommandLineOption hidden(const QString &name) {
    QCommandLineOption option(name, QString(), QStringLiteral("value"));
    option.setFlags(QCommandLineOption::HiddenFromHelp);
    return option;
}

// The seconds that an option asks for, or the usual ones where it is not there.
int seconds(const QCommandLineParser &parser, const QString &name, int usual, int most) {
    if (!parser.isSet(name))
        return usual;
    bool isNumber = false;
    const int value = parser.value(name).toInt(&isNumber);
    if (!isNumber || value < 0 || value > most)
        end(stderr,
            QStringLiteral("velmora-demo: --%1 needs whole seconds, 0 to %2\n").arg(name).arg(most),
            2);
    return value;
}

} // namespace

Options Options::fromArguments(const QStringList &arguments) {
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("A travel journal that shows advertising with Velmora, with a\n"
                       "development ad server inside."));
    const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")},
                                  QStringLiteral("Show this help."));
    const SplashTimes usual;
    parser.addOptions(
        {help,
         {CampaignKey, QStringLiteral("Serve this campaign instead of the sample."),
          QStringLiteral("folder")},
         {TourKey,
          QStringLiteral("Play the tour without a person; leave pictures and timeline.txt in "
                         "the folder."),
          QStringLiteral("folder")},
         {DelayKey,
          QStringLiteral("Time until the first splash screen may be shown (%1).").arg(usual.delay),
          QStringLiteral("seconds")},
         {LoadTimeKey, QStringLiteral("Length of the start screen, 0 to 15 (%1).").arg(usual.load),
          QStringLiteral("seconds")},
         {WaitKey, QStringLiteral("Time from one splash screen to the next (%1).").arg(usual.wait),
          QStringLiteral("seconds")},
         hidden(SceneKey),
         hidden(PictureKey),
         hidden(StartedKey)});
    if (!parser.parse(arguments))
        end(stderr, QStringLiteral("velmora-demo: %1\n").arg(parser.errorText()), 2);
    if (parser.isSet(help))
        end(stdout, parser.helpText(), 0);
    if (!parser.positionalArguments().isEmpty())
        end(stderr,
            QStringLiteral("velmora-demo: unexpected argument: %1\n")
                .arg(parser.positionalArguments().first()),
            2);
    if (parser.isSet(TourKey) && parser.value(TourKey).isEmpty())
        end(stderr, QStringLiteral("velmora-demo: --tour needs a folder\n"), 2);
    Options options;
    options.campaign = parser.isSet(CampaignKey) ? parser.value(CampaignKey)
                                                 : QStringLiteral(DEMO_CAMPAIGN_FOLDER);
    options.tour = parser.value(TourKey);
    options.scene = parser.value(SceneKey);
    if (parser.isSet(PictureKey))
        options.firstPicture = parser.value(PictureKey).toInt();
    constexpr int LongestLoadTime = 15;
    constexpr int OneDay = 24 * 60 * 60;
    options.times.delay = seconds(parser, DelayKey, usual.delay, OneDay);
    options.times.load = seconds(parser, LoadTimeKey, usual.load, LongestLoadTime);
    options.times.wait = seconds(parser, WaitKey, usual.wait, OneDay);
    options.tourStarted = parser.value(StartedKey).toLongLong();
    return options;
}

QStringList Options::forScene(const QString &name, int picture, qint64 started) const {
    const auto option = [](const QString &key, const QString &value) {
        return QStringLiteral("--%1=%2").arg(key, value);
    };
    return {option(CampaignKey, campaign), option(TourKey, tour), option(SceneKey, name),
            option(PictureKey, QString::number(picture)),
            option(StartedKey, QString::number(started))};
}

} // namespace demo
