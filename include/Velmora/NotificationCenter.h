// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <Velmora/Export.h>

#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtCore/QVariant>

#include <functional>
#include <memory>
#include <vector>

namespace velmora {

/// One event: its name and the object it is about (an invalid QVariant when there is none).
struct Notification {
    QString name;
    QVariant object;
};

/// The process-wide channel on which the framework tells the host what happens.
///
/// Delivery is synchronous, on the main thread, in the order in which observers registered. An
/// observer may remove itself or others, register new ones or destroy windows while it runs.
/// Hosts may use either addObserver() or the posted() signal.
class VELMORA_EXPORT NotificationCenter : public QObject {
    Q_OBJECT

public:
    using Handler = std::function<void(const Notification &)>;

    /// Keeps one registration alive; destroying or resetting it removes the observer.
    class VELMORA_EXPORT Observation {
    public:
        Observation() = default;
        Observation(Observation &&other) noexcept;
        Observation &operator=(Observation &&other) noexcept;
        ~Observation();
        void reset();

    private:
        friend class NotificationCenter;
        struct Entry;
        explicit Observation(std::shared_ptr<Entry> entry);
        std::shared_ptr<Entry> m_entry;
    };

    NotificationCenter();
    ~NotificationCenter() override;

    /// The one centre of the process.
    static NotificationCenter &defaultCenter();

    /// Registers a handler for a name. With an object given, only notifications about an equal
    /// object are delivered. The registration ends with the returned value.
    [[nodiscard]] Observation addObserver(const QString &name, const QVariant &object,
                                          Handler handler);
    [[nodiscard]] Observation addObserver(const QString &name, Handler handler);

    /// Delivers a notification before it returns. Main thread only.
    void post(const QString &name, const QVariant &object = {});

Q_SIGNALS:
    /// Emitted for every notification, after the registered handlers ran.
    void posted(const QString &name, const QVariant &object);

private:
    std::vector<std::weak_ptr<Observation::Entry>> m_observers;
};

} // namespace velmora
