// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace velmora {

/// The QApplication that banners and splash screens need, since both consist of widgets. A host
/// written with Qt Quick may have made a QGuiApplication instead. Main thread only.
class WidgetApplication {
public:
    /// True when there is one. Otherwise the first call writes a warning to the log.
    static bool exists();
};

} // namespace velmora
