// SPDX-License-Identifier: Apache-2.0
#include "tests/tour/Tour.h"

#include "tests/tour/SceneFactory.h"
#include "tests/tour/Timeline.h"
#include "tests/tour/TimelineCheck.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QProcess>

#include <cstdio>

namespace demo::tour {

namespace {

constexpr int LongestSceneMs = 90000;
const QString PictureMask = QStringLiteral("[0-9][0-9]-*.png");

bool complain(const QString &message) {
    std::fprintf(stderr, "velmora-tour: %s\n", qPrintable(message));
    return false;
}

} // namespace

Tour::Tour(const TourOptions &options) : m_options(options) {
    m_options.started = Timeline::now();
}

bool Tour::run() {
    const QString reader = QStringLiteral("reader");
    const QString guest = QStringLiteral("guest");
    const QString offline = QStringLiteral("offline");
    const QString viewer = QStringLiteral("viewer");
    const QString other = QStringLiteral("other");
    const QList<Part> parts{
        {SceneFactory::FirstStart, reader, reader, {}, {}},
        {SceneFactory::NextStart, reader, reader, {}, {}},
        {SceneFactory::HouseBanner, offline, offline, {}, {}},
        {SceneFactory::CachedBanner, reader, offline, {}, {}},
        {SceneFactory::HighDensity, guest, guest, QStringLiteral("2"), {}},
        {SceneFactory::HighDensity, guest, guest, QStringLiteral("1.5"), {}},
        {SceneFactory::FirstSplash, viewer, viewer, {}, {}},
        {SceneFactory::SeveralWindows, viewer, viewer, {}, {}},
        {SceneFactory::DefaultVideo, other, other, {}, {}},
        {SceneFactory::SplashFormat, viewer, viewer, QStringLiteral("2"), QStringLiteral("de")},
        {SceneFactory::SplashFormat, viewer, viewer, {}, QStringLiteral("ja")},
        {SceneFactory::RestyledSplash, viewer, viewer, {}, {}},
    };
    if (!prepareFolder())
        return false;
    bool complete = true;
    for (const Part &part : parts)
        complete = play(part) && complete;
    complete = checkTimeline() && complete;
    Timeline(m_options.folder, m_options.started)
        .add(QStringLiteral("tour"),
             complete ? QStringLiteral("complete") : QStringLiteral("incomplete"));
    return complete;
}

bool Tour::checkTimeline() {
    const QStringList faults = TimelineCheck(m_options.folder).faults();
    for (const QString &fault : faults)
        complain(fault);
    return faults.isEmpty();
}

bool Tour::prepareFolder() {
    QDir folder(m_options.folder);
    if (!m_homes.isValid())
        return complain(QStringLiteral("no temporary folder: %1").arg(m_homes.errorString()));
    if (!folder.mkpath(QStringLiteral(".")))
        return complain(QStringLiteral("cannot make the folder %1").arg(m_options.folder));
    const QStringList old = folder.entryList({PictureMask, Timeline::FileName}, QDir::Files);
    for (const QString &file : old)
        folder.remove(file);
    return Timeline(m_options.folder, m_options.started).isOpen() ||
           complain(QStringLiteral("cannot write into %1").arg(m_options.folder));
}

bool Tour::play(const Part &part) {
    TourOptions options = m_options;
    options.scene = part.scene;
    options.firstPicture = nextPicture();
    QProcess process;
    process.setProcessEnvironment(environmentFor(part));
    process.setProcessChannelMode(QProcess::ForwardedChannels);
    process.start(QCoreApplication::applicationFilePath(), options.arguments());
    if (!process.waitForFinished(LongestSceneMs)) {
        process.kill();
        process.waitForFinished();
        return complain(QStringLiteral("scene %1 did not end in time").arg(part.scene));
    }
    if (process.exitStatus() != QProcess::NormalExit)
        return complain(QStringLiteral("scene %1 crashed").arg(part.scene));
    return process.exitCode() == 0 || complain(QStringLiteral("scene %1 failed").arg(part.scene));
}

QProcessEnvironment Tour::environmentFor(const Part &part) const {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    // Settings of the desktop must not change the pictures.
    for (const char *name : {"QT_SCALE_FACTOR", "QT_SCREEN_SCALE_FACTORS", "QT_FONT_DPI",
                             "QT_USE_PHYSICAL_DPI", "QT_STYLE_OVERRIDE", "QT_QPA_PLATFORMTHEME"})
        environment.remove(QString::fromLatin1(name));
    environment.insert(QStringLiteral("LANGUAGE"),
                       part.language.isEmpty() ? QStringLiteral("en") : part.language);
    environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
    environment.insert(QStringLiteral("XDG_CACHE_HOME"),
                       m_homes.filePath(QStringLiteral("cache-") + part.cache));
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"),
                       m_homes.filePath(QStringLiteral("config-") + part.config));
    if (!part.scale.isEmpty())
        environment.insert(QStringLiteral("QT_SCALE_FACTOR"), part.scale);
    return environment;
}

int Tour::nextPicture() const {
    return int(QDir(m_options.folder).entryList({PictureMask}, QDir::Files).size()) + 1;
}

} // namespace demo::tour
