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

/// A notification that is being delivered.
struct Notification {
    QString name;
    /// What the notification is about; an invalid QVariant when there is nothing.
    QVariant object;
};

/// Delivers the framework's notifications to the host. Main thread only.
///
/// post() calls the handlers itself, in the order in which they were added. A handler may remove
/// itself or others, add new ones and destroy windows. A host may use addObserver() or the signal
/// posted(). See Notifications.h for the names.
class VELMORA_EXPORT NotificationCenter : public QObject {
    Q_OBJECT

public:
    using Handler = std::function<void(const Notification &)>;

    /// Owns the registration of one handler. The handler is removed when this is destroyed, reset
    /// or assigned to, and is then not called any more, even by a post() that is running.
    class VELMORA_EXPORT Observation {
    public:
        /// Owns no registration.
        Observation() = default;
        Observation(Observation &&other) noexcept;
        Observation &operator=(Observation &&other) noexcept;
        ~Observation();
        /// Removes the handler now. Ignored when there is none.
        void reset();

    private:
        friend class NotificationCenter;
        struct Entry;
        explicit Observation(std::shared_ptr<Entry> entry);
        std::shared_ptr<Entry> m_entry;
    };

    /// Makes a centre of the host's own. The framework posts to defaultCenter() only.
    NotificationCenter();
    ~NotificationCenter() override;

    /// The process's centre. The reference is valid as long as the application object exists.
    static NotificationCenter &defaultCenter();

    /// Adds a handler for a name. It is called as long as the returned value is kept.
    /// @param object if valid, the handler is called only for notifications with an equal object
    [[nodiscard]] Observation addObserver(const QString &name, const QVariant &object,
                                          Handler handler);
    /// The same for notifications with any object.
    [[nodiscard]] Observation addObserver(const QString &name, Handler handler);

    /// Calls all handlers for the name and emits posted(), before it returns.
    void post(const QString &name, const QVariant &object = {});

Q_SIGNALS:
    /// Emitted for every notification, after the handlers were called.
    void posted(const QString &name, const QVariant &object);

private:
    std::vector<std::weak_ptr<Observation::Entry>> m_observers;
};

} // namespace velmora
