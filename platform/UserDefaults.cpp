#include <Velmora/UserDefaults.h>

#include "platform/ProcessRoot.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QSettings>

#include <mutex>

namespace velmora {

namespace {

QString organization() {
    QString name = QCoreApplication::organizationName();
    if (name.isEmpty())
        name = QCoreApplication::organizationDomain();
    if (name.isEmpty())
        name = QCoreApplication::applicationName();
    return name.isEmpty() ? QStringLiteral("Velmora") : name;
}

} // namespace

class UserDefaults::Private {
public:
    std::mutex mutex;
    QSettings settings{QSettings::NativeFormat, QSettings::UserScope, organization(),
                       QCoreApplication::applicationName()};
};

UserDefaults::UserDefaults() : d(std::make_unique<Private>()) {
    // What is asked for is this host's key, never the same key of its whole organisation.
    d->settings.setFallbacksEnabled(false);
}

UserDefaults::~UserDefaults() = default;

UserDefaults &UserDefaults::standard() {
    return ProcessRoot::get<UserDefaults>();
}

QVariant UserDefaults::object(const QString &key) const {
    const std::lock_guard lock(d->mutex);
    return d->settings.value(key);
}

void UserDefaults::setObject(const QVariant &value, const QString &key) {
    const std::lock_guard lock(d->mutex);
    d->settings.setValue(key, value);
    d->settings.sync();
}

void UserDefaults::removeObject(const QString &key) {
    const std::lock_guard lock(d->mutex);
    d->settings.remove(key);
    d->settings.sync();
}

} // namespace velmora
