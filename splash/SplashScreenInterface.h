// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "SplashScreenOutlets.h"

namespace velmora {

/// Makes the view of a splash screen: loads it from the interface resource and gives its elements
/// their images, texts, accessible names and stacking order. Main thread only.
class SplashScreenInterface {
public:
    /// The view, owned by the caller; null, with a log line, when the resource cannot be loaded.
    static QWidget *load();
    /// Prepares a loaded view for its first start screen. Missing elements are skipped.
    static void prepare(QWidget *root, const SplashScreenOutlets &outlets);

private:
    static void setImages(const SplashScreenOutlets &outlets);
    static void setTexts(const SplashScreenOutlets &outlets);
    static void setAccessibleNames(QWidget *root, const SplashScreenOutlets &outlets);
    static void setStackingOrder(QWidget *root, const SplashScreenOutlets &outlets);
    static void hideVideoElements(const SplashScreenOutlets &outlets);
};

} // namespace velmora
