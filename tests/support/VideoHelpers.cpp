// SPDX-License-Identifier: Apache-2.0
#include "tests/support/VideoHelpers.h"

#include <QtCore/QDir>
#include <QtCore/QFile>

#include <unistd.h>

namespace velmora::test {

namespace {

constexpr const char *Variable = "VELMORA_TEST_PARENT";

QByteArray contents(const QString &process, const char *name) {
    QFile file(QStringLiteral("/proc/%1/%2").arg(process, QLatin1String(name)));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

// Helpers are no child processes, but they inherit the environment.
void watchVideoHelpers() {
    qputenv(Variable, QByteArray::number(getpid()));
}

QList<pid_t> videoHelpers() {
    const QByteArray entry = QByteArray(Variable) + '=' + QByteArray::number(getpid());
    QList<pid_t> found;
    for (const QString &id : QDir(QStringLiteral("/proc")).entryList(QDir::Dirs)) {
        // The media framework starts a scanner of its plugins, which is named otherwise.
        if (contents(id, "comm").startsWith("velmora-") &&
            contents(id, "environ").split('\0').contains(entry))
            found << id.toInt();
    }
    return found;
}

} // namespace velmora::test
