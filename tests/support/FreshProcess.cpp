// SPDX-License-Identifier: Apache-2.0
#include "tests/support/FreshProcess.h"

#include "ProcessRoot.h"
#include "Switches.h"
#include "tests/support/Waiting.h"

#include <Velmora/UserDefaults.h>

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QStandardPaths>

#include <cstring>
#include <mutex>

namespace velmora::test {

namespace {

std::mutex s_logMutex;
QStringList s_log;
QtMessageHandler s_previous = nullptr;

void collect(QtMsgType type, const QMessageLogContext &context, const QString &message) {
    if (context.category && std::strcmp(context.category, "velmora") == 0) {
        const std::lock_guard lock(s_logMutex);
        s_log.append(message);
        return;
    }
    s_previous(type, context, message);
}

} // namespace

QString hostCachesFolder() {
    return QStandardPaths::writableLocation(QStandardPaths::CacheLocation);
}

QString cachesFolder() {
    return hostCachesFolder() + QStringLiteral("/Velmora");
}

void putInCaches(QAnyStringView name, const QByteArray &bytes) {
    QDir().mkpath(cachesFolder());
    QFile file(cachesFolder() + QLatin1Char('/') + name.toString());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

FreshProcess::FreshProcess() {
    restartProcess();
    if (!qEnvironmentVariableIsSet("VELMORA_TEST_CHILD")) {
        Switches::setADSRemoved(false);
        for (const char *key : {"eventStackData", "splashScreenMuted"})
            UserDefaults::standard().removeObject(QLatin1String(key));
        ProcessRoot::drop();
        QDir(hostCachesFolder()).removeRecursively();
    }
    Deployment deployment = Deployment::builtIn();
    deployment.acsURL = QStringLiteral("https://127.0.0.1:1");
    deployment.storeLookupURL = deployment.acsURL;
    deployment.reachabilityProbe = QStringLiteral("127.0.0.1");
    Deployment::replace(deployment);
    const std::lock_guard lock(s_logMutex);
    s_log.clear();
    s_previous = qInstallMessageHandler(collect);
}

FreshProcess::~FreshProcess() {
    restartProcess();
    qInstallMessageHandler(s_previous);
    Deployment::replace({});
}

void FreshProcess::restartProcess() {
    handleEvents();
    ProcessRoot::drop();
    handleEvents();
    ProcessRoot::drop();
}

QStringList FreshProcess::logged() {
    const std::lock_guard lock(s_logMutex);
    return s_log;
}

qsizetype FreshProcess::timesLogged(QAnyStringView part) {
    return logged().filter(part.toString()).size();
}

} // namespace velmora::test
