// SPDX-License-Identifier: Apache-2.0
#include "tests/tour/Timeline.h"

#include <QtCore/QElapsedTimer>

namespace demo::tour {

Timeline::Timeline(const QString &folder, qint64 started)
    : m_file(folder + '/' + FileName), m_started(started) {
    m_file.open(QIODevice::WriteOnly | QIODevice::Append);
}

qint64 Timeline::now() {
    QElapsedTimer clock;
    clock.start();
    return clock.msecsSinceReference();
}

void Timeline::add(const QString &name, const QString &object) {
    QString line = QStringLiteral("%1\t%2\t%3").arg(now() - m_started).arg(name, object);
    line.replace('\n', ' ');
    m_file.write(line.toUtf8() + '\n');
    m_file.flush();
}

} // namespace demo::tour
