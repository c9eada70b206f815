// SPDX-License-Identifier: Apache-2.0
#include "tests/tour/Tour.h"

#include "tests/tour/Scene.h"
#include "tests/tour/Scenes.h"
#include "tests/tour/Timeline.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QProcess>

#include <cstdio>

namespace demo::tour {

namespace {

constexpr int LongestSceneMs = 90000;

bool complain(const QString &message) {
    std::fprintf(stderr, "velmora-tour: %s\n", qPrintable(message));
    return false;
}

} // namespace

const QList<Tour::Start> &Tour::starts() {
    static const QList<Start> starts{
        {"first-start", firstStart, "reader", "reader"},
        {"next-start", nextStart, "reader", "reader"},
        {"house-banner", houseBanner, "offline", "offline"},
        {"cached-banner", cachedBanner, "reader", "offline"},
        {"high-density", highDensity, "guest", "guest", "2"},
        {"high-density", highDensity, "guest", "guest", "1.5"},
        {"first-splash", firstSplash, "viewer", "viewer"},
        {"several-windows", severalWindows, "viewer", "viewer"},
        {"default-video", defaultVideo, "other", "other"},
        {"splash-format", splashFormat, "viewer", "viewer", "2", "de"},
        {"splash-format", splashFormat, "viewer", "viewer", {}, "ja"},
        {"restyled-splash", restyledSplash, "viewer", "viewer"},
    };
    return starts;
}

Tour::Tour(const QString &folder) : m_folder(folder), m_started(Timeline::now()) {}

bool Tour::run() {
    if (!prepareFolder())
        return false;
    bool complete = true;
    for (const Start &start : starts())
        complete = play(start) && complete;
    Timeline(m_folder, m_started).add("tour", complete ? "complete" : "incomplete");
    return complete;
}

bool Tour::prepareFolder() {
    QDir folder(m_folder);
    if (!m_homes.isValid())
        return complain("no temporary folder: " + m_homes.errorString());
    if (!folder.mkpath("."))
        return complain("cannot make the folder " + m_folder);
    const QStringList old = folder.entryList({Scene::PictureMask, Timeline::FileName}, QDir::Files);
    for (const QString &file : old)
        folder.remove(file);
    return Timeline(m_folder, m_started).isOpen() || complain("cannot write into " + m_folder);
}

bool Tour::play(const Start &start) {
    QProcess process;
    process.setProcessEnvironment(environmentFor(start));
    process.setProcessChannelMode(QProcess::ForwardedChannels);
    process.start(QCoreApplication::applicationFilePath(),
                  QStringList{"--scene", start.scene, "--started", QString::number(m_started)} +
                      QCoreApplication::arguments().mid(1));
    if (!process.waitForFinished(LongestSceneMs))
        return complain("did not end in time: scene " + start.scene);
    if (process.exitStatus() != QProcess::NormalExit)
        return complain("crashed: scene " + start.scene);
    return process.exitCode() == 0 || complain("failed: scene " + start.scene);
}

QProcessEnvironment Tour::environmentFor(const Start &start) const {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    // Settings of the desktop must not change the pictures.
    for (const char *name : {"QT_SCALE_FACTOR", "QT_SCREEN_SCALE_FACTORS", "QT_FONT_DPI",
                             "QT_USE_PHYSICAL_DPI", "QT_STYLE_OVERRIDE", "QT_QPA_PLATFORMTHEME"})
        environment.remove(name);
    environment.insert("LANGUAGE", start.language);
    environment.insert("LC_ALL", "C.UTF-8");
    environment.insert("XDG_CACHE_HOME", m_homes.filePath("cache-" + start.cache));
    environment.insert("XDG_DATA_HOME", m_homes.filePath("data-" + start.config));
    environment.insert("XDG_CONFIG_HOME", m_homes.filePath("config-" + start.config));
    if (!start.scale.isEmpty())
        environment.insert("QT_SCALE_FACTOR", start.scale);
    return environment;
}

} // namespace demo::tour
