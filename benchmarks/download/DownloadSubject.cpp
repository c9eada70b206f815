// SPDX-License-Identifier: Apache-2.0
#include "benchmarks/download/DownloadSubject.h"

#include "CachesFolder.h"
#include "Deployment.h"
#include "MediaCache.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QTimer>

#include <cstdio>

namespace velmora::bench {

namespace {

// The peak begins again with what is in use now.
void forgetPeak() {
    QFile file(QStringLiteral("/proc/self/clear_refs"));
    if (!file.open(QIODevice::WriteOnly) || file.write("5") != 1)
        qFatal("the peak of the memory cannot be measured");
}

ProcessFigures ownFigures() {
    return ProcessFigures::of(QCoreApplication::applicationPid());
}

} // namespace

DownloadSubject::DownloadSubject(bool isPlain, int settleMs) : m_settleMs(settleMs) {
    if (isPlain)
        m_plain.emplace(Deployment::current().adServerAuthorities);
}

void DownloadSubject::run() {
    QDir().mkpath(CachesFolder::path());
    m_before = ownFigures();
    download(SmallFilm, [this](bool) {
        QTimer::singleShot(m_settleMs, [this] {
            std::printf("%f ", ownFigures().privateMegabytes - m_before.privateMegabytes);
            downloadLarge();
        });
    });
}

void DownloadSubject::download(const char *path, const Completion &completion) {
    const QUrl remote(Deployment::current().acsURL + QLatin1String(path));
    const auto checked = [completion](bool isComplete) {
        if (!isComplete)
            qFatal("a film could not be downloaded");
        completion(true);
    };
    if (m_plain) {
        m_plain->start(remote, CachesFolder::pathFor(QLatin1String(path).mid(1)), checked);
        return;
    }
    MediaCache::provide(remote, MediaKind::Film, [checked](const MediaCache::Result &film) {
        checked(!film.file.isEmpty());
    });
}

void DownloadSubject::downloadLarge() {
    forgetPeak();
    m_before = ownFigures();
    m_time.start();
    download(LargeFilm, [this](bool) {
        const double seconds = double(m_time.nsecsElapsed()) / 1e9;
        QTimer::singleShot(m_settleMs,
                           [this, seconds, atEnd = ownFigures()] { end(seconds, atEnd); });
    });
}

void DownloadSubject::end(double seconds, const ProcessFigures &atEnd) {
    std::printf("%f %f %f %f\n", seconds, atEnd.cpuSeconds - m_before.cpuSeconds,
                atEnd.peakMegabytes - m_before.peakMegabytes,
                ownFigures().privateMegabytes - m_before.privateMegabytes);
    QCoreApplication::quit();
}

} // namespace velmora::bench
