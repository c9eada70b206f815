// SPDX-License-Identifier: Apache-2.0
#include "ProcessIdentity.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QFile>

#include <cerrno>
#include <csignal>

namespace velmora {

namespace {

// Empty when the process has ended, also while its parent has not asked for its result.
QByteArray startTime(qint64 pid) {
    QFile file(QStringLiteral("/proc/%1/stat").arg(pid));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    // The second field, the program's name in parentheses, may contain blanks and parentheses.
    const QByteArray text = file.readAll();
    const QByteArrayList fields = text.mid(text.lastIndexOf(')') + 2).split(' ');
    constexpr int State = 0;
    constexpr int StartTime = 19;
    if (fields.size() <= StartTime || fields[State] == "Z" || fields[State] == "X")
        return {};
    return fields[StartTime];
}

} // namespace

QString ProcessIdentity::ofThisProcess() {
    const qint64 pid = QCoreApplication::applicationPid();
    return QStringLiteral("%1-%2").arg(pid).arg(QLatin1String(startTime(pid)));
}

bool ProcessIdentity::isAlive(const QString &identity) {
    const auto dash = identity.indexOf(u'-');
    const int pid = identity.left(dash).toInt();
    if (dash < 0 || pid <= 0)
        return false;
    const QString start = identity.mid(dash + 1);
    if (!start.isEmpty())
        return start == QLatin1String(startTime(pid));
    return ::kill(pid, 0) == 0 || errno == EPERM;
}

} // namespace velmora
