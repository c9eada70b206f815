// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <Velmora/VelmoraEvents.h>

#include <QtQml/qqmlregistration.h>

namespace velmora {

/// Makes the enumerations of VelmoraEvents usable in QML: VelmoraEvents.AdsRemoved, for example.
struct EventTypes {
    Q_GADGET
    QML_FOREIGN(VelmoraEvents)
    QML_NAMED_ELEMENT(VelmoraEvents)
    QML_UNCREATABLE("Its signals are signals of the singleton Velmora")
};

} // namespace velmora
