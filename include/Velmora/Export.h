// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/qglobal.h>

/// Marks the symbols that the shared library exports. All others are hidden. A static library
/// exports nothing; CMake defines VELMORA_STATIC for it and for the hosts that link it.
#if defined(VELMORA_STATIC)
#define VELMORA_EXPORT
#elif defined(VELMORA_BUILDING_LIBRARY)
#define VELMORA_EXPORT Q_DECL_EXPORT
#else
#define VELMORA_EXPORT Q_DECL_IMPORT
#endif
