// SPDX-License-Identifier: Apache-2.0
#include "demo/tour/Tour.h"

#include "demo/tour/Scene.h"
#include "demo/tour/Timeline.h"
#include "demo/tour/TimelineCheck.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QProcess>

#include <cstdio>

namespace demo {

namespace {

constexpr int LongestSceneMs = 90000;
const QString PictureMask = QStringLiteral("[0-9][0-9]-*.png");

bool complain(const QString &message) {
    std::fprintf(stderr, "velmora-demo: %s\n", qPrintable(message));
    return false;
}

} // namespace

Tour::Tour(const Options &options) : m_options(options), m_started(Timeline::now()) {
    m_options.tour = QDir(options.tour).absolutePath();
}

bool Tour::run() {
    const QString reader = QStringLiteral("reader");
    const QString guest = QStringLiteral("guest");
    const QString offline = QStringLiteral("offline");
    const QString viewer = QStringLiteral("viewer");
    const QString other = QStringLiteral("other");
    const QList<Part> parts{
        {Scene::FirstStart, reader, reader, {}, {}},
        {Scene::NextStart, reader, reader, {}, {}},
        {Scene::HouseBanner, offline, offline, {}, {}},
        {Scene::CachedBanner, reader, offline, {}, {}},
        {Scene::HighDensity, guest, guest, QStringLiteral("2"), {}},
        {Scene::HighDensity, guest, guest, QStringLiteral("1.5"), {}},
        {Scene::FirstSplash, viewer, viewer, {}, {}},
        {Scene::SeveralWindows, viewer, viewer, {}, {}},
        {Scene::DefaultVideo, other, other, {}, {}},
        {Scene::SplashFormat, viewer, viewer, QStringLiteral("2"), QStringLiteral("de")},
        {Scene::SplashFormat, viewer, viewer, {}, QStringLiteral("ja")},
        {Scene::RestyledSplash, viewer, viewer, {}, {}},
    };
    if (!prepareFolder())
        return false;
    bool complete = true;
    for (const Part &part : parts)
        complete = play(part) && complete;
    complete = checkTimeline() && complete;
    Timeline(m_options.tour, m_started)
        .add(QStringLiteral("tour"),
             complete ? QStringLiteral("complete") : QStringLiteral("incomplete"));
    return complete;
}

bool Tour::checkTimeline() {
    const QStringList faults = TimelineCheck(m_options.tour).faults();
    for (const QString &fault : faults)
        complain(fault);
    return faults.isEmpty();
}

bool Tour::prepareFolder() {
    QDir folder(m_options.tour);
    if (!m_homes.isValid())
        return complain(QStringLiteral("no temporary folder: %1").arg(m_homes.errorString()));
    if (!folder.mkpath(QStringLiteral(".")))
        return complain(QStringLiteral("cannot make the folder %1").arg(m_options.tour));
    const QStringList old = folder.entryList({PictureMask, Timeline::FileName}, QDir::Files);
    for (const QString &file : old)
        folder.remove(file);
    return Timeline(m_options.tour, m_started).isOpen() ||
           complain(QStringLiteral("cannot write into %1").arg(m_options.tour));
}

bool Tour::play(const Part &part) {
    QProcess process;
    process.setProcessEnvironment(environmentFor(part));
    process.setProcessChannelMode(QProcess::ForwardedChannels);
    process.start(QCoreApplication::applicationFilePath(),
                  m_options.forScene(part.scene, nextPicture(), m_started));
    if (!process.waitForFinished(LongestSceneMs)) {
        process.kill();
        process.waitForFinished();
        return complain(QStringLiteral("scene %1 did not come to its end").arg(part.scene));
    }
    if (process.exitStatus() != QProcess::NormalExit)
        return complain(QStringLiteral("scene %1 crashed").arg(part.scene));
    return process.exitCode() == 0 || complain(QStringLiteral("scene %1 failed").arg(part.scene));
}

QProcessEnvironment Tour::environmentFor(const Part &part) const {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    // The tour looks the same whatever the desktop that it is started from.
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
    return int(QDir(m_options.tour).entryList({PictureMask}, QDir::Files).size()) + 1;
}

} // namespace demo
