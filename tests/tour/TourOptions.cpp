// SPDX-License-Identifier: Apache-2.0
#include "tests/tour/TourOptions.h"

#include <QtCore/QCommandLineParser>
#include <QtCore/QDir>

#include <cstdio>
#include <cstdlib>

namespace demo::tour {

namespace {

const QString CampaignKey = QStringLiteral("campaign");
const QString SceneKey = QStringLiteral("scene");
const QString PictureKey = QStringLiteral("first-picture");
const QString StartedKey = QStringLiteral("started");

QCommandLineOption hidden(const QString &name) {
    QCommandLineOption option(name, QString(), QStringLiteral("value"));
    option.setFlags(QCommandLineOption::HiddenFromHelp);
    return option;
}

[[noreturn]] void refuse(const QString &reason) {
    std::fprintf(stderr, "velmora-tour: %s\n", qPrintable(reason));
    std::exit(2);
}

} // namespace

TourOptions TourOptions::fromArguments(const QStringList &arguments) {
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Operates the demo by itself, checks what it shows and saves pictures."));
    const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")},
                                  QStringLiteral("Show this help."));
    parser.addOptions({help,
                       {CampaignKey, QStringLiteral("Serve this campaign instead of the sample."),
                        QStringLiteral("folder")},
                       hidden(SceneKey),
                       hidden(PictureKey),
                       hidden(StartedKey)});
    parser.addPositionalArgument(QStringLiteral("folder"),
                                 QStringLiteral("Where the pictures and timeline.txt go."));
    if (!parser.parse(arguments))
        refuse(parser.errorText());
    if (parser.isSet(help)) {
        std::fputs(qPrintable(parser.helpText()), stdout);
        std::exit(0);
    }
    const QStringList folders = parser.positionalArguments();
    if (folders.size() != 1 || folders.first().isEmpty())
        refuse(QStringLiteral("exactly one folder is needed (see --help)"));
    TourOptions options;
    options.folder = QDir(folders.first()).absolutePath();
    options.campaign = parser.isSet(CampaignKey) ? parser.value(CampaignKey)
                                                 : QStringLiteral(DEMO_CAMPAIGN_FOLDER);
    options.scene = parser.value(SceneKey);
    if (parser.isSet(PictureKey))
        options.firstPicture = parser.value(PictureKey).toInt();
    options.started = parser.value(StartedKey).toLongLong();
    return options;
}

QStringList TourOptions::arguments() const {
    const auto option = [](const QString &key, const QString &value) {
        return QStringLiteral("--%1=%2").arg(key, value);
    };
    return {option(CampaignKey, campaign), option(SceneKey, scene),
            option(PictureKey, QString::number(firstPicture)),
            option(StartedKey, QString::number(started)), folder};
}

} // namespace demo::tour
