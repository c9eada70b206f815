// SPDX-License-Identifier: Apache-2.0
#include <Velmora/Support.h>

#include "HostSettings.h"
#include "Log.h"
#include "ProcessRoot.h"

#include <Velmora/StandardNames.h>

namespace velmora {

namespace {

// The strings of the user's language, loaded once a process.
struct StringTable {
    StringTable() {
        const QUrl file = Bundle::resourseBundleForClass<StandardNames>().urlForResource(
            StandardNames::curentLocaleIdentifier() + QStringLiteral(".lproj/Localizable"),
            QStringLiteral("strings"));
        strings = StandardNames::getInfoFromURL(file);
    }

    QHash<QString, QString> strings;
};

} // namespace

} // namespace velmora

velmora::UserDefaults &VLMUserDefaults() {
    return velmora::UserDefaults::standard();
}

QVariant VLMObjForKey(const QString &key) {
    return velmora::HostSettings::value(key);
}

void VLMSetObjForKey(const QVariant &object, const QString &key) {
    velmora::HostSettings::setValue(object, key);
}

const velmora::Bundle &VLMMainAppBundle() {
    return velmora::Bundle::mainBundle();
}

const QStringList &VLMAllowLocale() {
    // Never destroyed: another thread may be in exit().
    static const auto &codes = *new QStringList{
        QStringLiteral("en"), QStringLiteral("ru"), QStringLiteral("de"), QStringLiteral("es"),
        QStringLiteral("fr"), QStringLiteral("it"), QStringLiteral("ko"), QStringLiteral("pt"),
        QStringLiteral("ru"), QStringLiteral("ja"), QStringLiteral("zh")};
    return codes;
}

QString VLMStringFromKey(const QString &key) {
    const QString wanted = key.isNull() ? QLatin1String("") : key;
    if (velmora::ProcessRoot::hasEnded())
        return wanted;
    const auto table = velmora::ProcessRoot::share<velmora::StringTable>();
    return table->strings.value(wanted, wanted);
}

void LOG(const QString &message) {
    velmora::Log::write(message);
}

void setGodTimer(const velmora::TimerPtr &timer) {
    if (timer)
        timer->setFiresDuringTracking();
}
