// SPDX-License-Identifier: Apache-2.0
#include "demo/EventLog.h"

namespace demo {

EventLog::EventLog(QObject *parent) : QAbstractListModel(parent) {
    m_clock.start();
}

void EventLog::record(const QString &name, const QString &object) {
    const int row = int(m_events.size());
    beginInsertRows({}, row, row);
    m_events.append({m_clock.elapsed(), name, object});
    endInsertRows();
    Q_EMIT recorded(name, object);
}

int EventLog::rowCount(const QModelIndex &parent) const {
    return parent.isValid() ? 0 : int(m_events.size());
}

QVariant EventLog::data(const QModelIndex &index, int role) const {
    if (!index.isValid())
        return {};
    const Event &event = m_events.at(index.row());
    switch (role) {
    case NameRole:
        return event.name;
    case Qt::ToolTipRole:
        return event.object.isEmpty() ? event.name : event.name + QLatin1Char('\n') + event.object;
    case ObjectRole:
        return event.object;
    case TimeRole:
        return event.milliseconds;
    default:
        return {};
    }
}

} // namespace demo
