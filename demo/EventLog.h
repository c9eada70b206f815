// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QAbstractListModel>
#include <QtCore/QElapsedTimer>
#include <QtCore/QList>
#include <QtCore/QString>

namespace demo {

/// The events of this run, oldest first: the framework's signals, opened links and actions of
/// the host. Events are recorded by name and displayed in words; the tool tip has the name.
/// TimeRole gives milliseconds since the log was made.
class EventLog : public QAbstractListModel {
    Q_OBJECT

public:
    enum Role { ObjectRole = Qt::UserRole, TimeRole };

    explicit EventLog(QObject *parent = nullptr);

    void record(const QString &name, const QString &object = {});
    /// An event's name in words.
    static QString inWords(const QString &name);

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;

Q_SIGNALS:
    void recorded(const QString &name, const QString &object);

private:
    struct Event {
        qint64 milliseconds;
        QString name;
        QString object;
    };

    QElapsedTimer m_clock;
    QList<Event> m_events;
};

} // namespace demo
