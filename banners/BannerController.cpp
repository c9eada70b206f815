// SPDX-License-Identifier: Apache-2.0
#include <Velmora/BannerController.h>

namespace velmora {

BannerController::BannerController() = default;
BannerController::~BannerController() = default;

} // namespace velmora
