// SPDX-License-Identifier: Apache-2.0
#include "FacadeState.h"

#include "ProcessRoot.h"

#include <QtWidgets/QApplication>

namespace velmora {

FacadeState &FacadeState::current() {
    return ProcessRoot::get<FacadeState>();
}

bool FacadeState::hasApplication() {
    return ProcessRoot::isUsable() && qobject_cast<QApplication *>(QCoreApplication::instance());
}

} // namespace velmora
