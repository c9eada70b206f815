// SPDX-License-Identifier: Apache-2.0
#include "MachineIdentifier.h"

#include <QtCore/QSysInfo>

#include <algorithm>

namespace velmora {

QString MachineIdentifier::uuid() {
    return uuidText(QSysInfo::machineUniqueId());
}

QString MachineIdentifier::uuidText(const QByteArray &identifier) {
    QString text = QString::fromLatin1(identifier.trimmed()).toUpper();
    const bool isBare = text.size() == 32 && std::all_of(text.cbegin(), text.cend(), [](QChar c) {
                            return (c >= u'0' && c <= u'9') || (c >= u'A' && c <= u'F');
                        });
    if (isBare) {
        for (int position : {20, 16, 12, 8})
            text.insert(position, u'-');
    }
    return text;
}

} // namespace velmora
