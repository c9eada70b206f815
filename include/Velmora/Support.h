// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <Velmora/Bundle.h>
#include <Velmora/Export.h>
#include <Velmora/Timer.h>
#include <Velmora/UserDefaults.h>

#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QVariant>

// A host's logging library may define a macro of this name, which would replace the function's.
#pragma push_macro("LOG")
#undef LOG

/// @file
/// Functions of the framework that a host may use too. None throws. All may be called before the
/// application object (QApplication) exists.

/// The host's persistent settings. The reference is valid as long as the application object exists.
/// Any thread.
VELMORA_EXPORT velmora::UserDefaults &VLMUserDefaults();

/// The value stored under a key; an invalid QVariant when there is none. Any thread.
VELMORA_EXPORT QVariant VLMObjForKey(const QString &key);

/// Stores a value under a key, and flushes the settings to disk before it returns. See UserDefaults
/// for what happens when that fails. Any thread.
VELMORA_EXPORT void VLMSetObjForKey(const QVariant &object, const QString &key);

/// The host application's bundle, see Bundle::mainBundle(). Main thread.
VELMORA_EXPORT const velmora::Bundle &VLMMainAppBundle();

/// The codes of the languages that the framework's texts are translated into, in search order. The
/// list contains "ru" twice. Any thread.
VELMORA_EXPORT const QStringList &VLMAllowLocale();

/// The framework's text for a key in the user's language, or the key itself when there is none. A
/// null key counts as an empty one. The first call in a process decides the language. Any thread.
VELMORA_EXPORT QString VLMStringFromKey(const QString &key);

/// Writes a message to the log while debug mode is on and ads are not removed; otherwise does
/// nothing. The message is a Qt debug message of the category "velmora", so it goes to the
/// installed message handler. Qt's logging rules do not filter it. Any thread.
///
/// A macro LOG that a host has defined before it includes this header is defined again afterwards.
/// If the macro takes arguments, parentheses call the function: (LOG)(message). Otherwise call it
/// in a source without the macro, or after #undef LOG.
VELMORA_EXPORT void LOG(const QString &message);

/// Lets a timer also fire while the user drags or resizes a window or holds a menu open. With Qt
/// every timer does, so this only sets Timer::firesDuringTracking(). Null is ignored. Main thread.
VELMORA_EXPORT void setGodTimer(const velmora::TimerPtr &timer);

#pragma pop_macro("LOG")
