// SPDX-License-Identifier: Apache-2.0
#include "tests/support/VideoHelpers.h"

#include <QtCore/QDir>
#include <QtCore/QFile>

#include <unistd.h>

namespace velmora::test {

namespace {

constexpr const char *Variable = "VELMORA_TEST_PARENT";

} // namespace

// Helpers are no child processes, but they inherit the environment.
void watchVideoHelpers() {
    qputenv(Variable, QByteArray::number(getpid()));
}

QList<pid_t> videoHelpers() {
    const QByteArray entry = QByteArray(Variable) + '=' + QByteArray::number(getpid());
    QList<pid_t> found;
    for (const QString &id : QDir(QStringLiteral("/proc")).entryList(QDir::Dirs)) {
        QFile environment(QStringLiteral("/proc/%1/environ").arg(id));
        if (environment.open(QIODevice::ReadOnly) &&
            environment.readAll().split('\0').contains(entry))
            found << id.toInt();
    }
    return found;
}

} // namespace velmora::test
