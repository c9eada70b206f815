// SPDX-License-Identifier: Apache-2.0
#pragma once

class QWidget;

/// What the plugin does with the window before it is unloaded.
/// @param state "idle", "banner" or "splash"; "film:PATH" shows the end screen after that film
/// @param ready called when the state is reached
extern "C" void beginAdvertising(QWidget *window, const char *state, void (*ready)());
using BeginAdvertising = decltype(&beginAdvertising);
