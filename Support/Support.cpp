#include <Velmora/Support.h>

#include "Support/StandardNames.h"
#include "facade/Switches.h"
#include "platform/ProcessRoot.h"

#include "Support/Log.h"

Q_LOGGING_CATEGORY(velmoraLog, "velmora", QtDebugMsg)

namespace velmora {

namespace {

// The strings of the user's language; looked up once for the life of the process.
struct StringTable {
    StringTable() {
        const Bundle &bundle = Bundle::resourseBundleForClass<StandardNames>();
        const QString path = bundle.resourcePath() + QLatin1Char('/') +
                             StandardNames::curentLocaleIdentifier() +
                             QStringLiteral(".lproj/Localizable.strings");
        strings = StandardNames::getInfoFromURL(path.startsWith(QLatin1Char(':'))
                                                    ? QUrl(QStringLiteral("qrc") + path)
                                                    : QUrl::fromLocalFile(path));
    }

    QHash<QString, QString> strings;
};

} // namespace

} // namespace velmora

velmora::UserDefaults &VLMUserDefaults() {
    return velmora::UserDefaults::standard();
}

QVariant VLMObjForKey(const QString &key) {
    return velmora::ProcessRoot::share<velmora::UserDefaults>()->object(key);
}

void VLMSetObjForKey(const QVariant &object, const QString &key) {
    velmora::ProcessRoot::share<velmora::UserDefaults>()->setObject(object, key);
}

const velmora::Bundle &VLMMainAppBundle() {
    return velmora::Bundle::mainBundle();
}

const QStringList &VLMAllowLocale() {
    static const QStringList codes{QStringLiteral("en"), QStringLiteral("ru"), QStringLiteral("de"),
                                   QStringLiteral("es"), QStringLiteral("fr"), QStringLiteral("it"),
                                   QStringLiteral("ko"), QStringLiteral("pt"), QStringLiteral("ru"),
                                   QStringLiteral("ja"), QStringLiteral("zh")};
    return codes;
}

QString VLMStringFromKey(const QString &key) {
    const auto table = velmora::ProcessRoot::share<velmora::StringTable>();
    const QString wanted = key.isNull() ? QLatin1String("") : key;
    return table->strings.value(wanted, wanted);
}

void LOG(const QString &message) {
    if (velmora::Switches::isDebugModeActivate() && !velmora::Switches::isADSRemoved())
        qCDebug(velmoraLog).noquote() << message;
}

void setGodTimer(const velmora::TimerPtr &timer) {
    if (timer)
        timer->setFiresDuringTracking();
}
