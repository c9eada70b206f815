// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace demo::tour {

class Scene;

/// The first start, online: a banner in every position and size, a click on it, the next banner,
/// and its removal when the reader pays.
void firstStart(Scene &scene);

/// The start after advertising was removed: no banner, and no request to the ad server.
void nextStart(Scene &scene);

/// A first start while the ad server is down: a house banner is shown.
void houseBanner(Scene &scene);

/// A later start while the ad server is down: a banner that an earlier run stored is shown.
void cachedBanner(Scene &scene);

/// A start with the pixel ratio that QT_SCALE_FACTOR asks for.
void highDensity(Scene &scene);

/// The first splash screen of a run: refused before its delay is over, then every phase, with the
/// clicks that are possible in it.
void firstSplash(Scene &scene);

/// Splash screens started from the panel: one without a start screen, then one that a second window
/// joins and that pauses while a window without a splash screen is active.
void severalWindows(Scene &scene);

/// The ad server has no videos, so the host's default video is played. It has no still, so the end
/// screen shows the icon instead. The look is changed while the end screen is shown.
void defaultVideo(Scene &scene);

/// Every phase of a splash screen in a window of usual and of very small size, in the language and
/// at the pixel ratio of this run.
void splashFormat(Scene &scene);

/// A splash screen in a look of the host's. The reader pays while it is shown, which removes it.
void restyledSplash(Scene &scene);

} // namespace demo::tour
