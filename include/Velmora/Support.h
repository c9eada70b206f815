// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <Velmora/Bundle.h>
#include <Velmora/Export.h>
#include <Velmora/Timer.h>
#include <Velmora/UserDefaults.h>

#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QVariant>

/// @file
/// The framework's support functions, which a host may call too. None throws or reports an
/// error. They may be called before the application object (QApplication) exists.

/// The host's persistent settings store. Any thread.
VELMORA_EXPORT velmora::UserDefaults &VLMUserDefaults();

/// The object stored under a key, or an invalid QVariant. Any thread.
VELMORA_EXPORT QVariant VLMObjForKey(const QString &key);

/// Stores an object under a key and flushes the store to disk at once. Any thread.
VELMORA_EXPORT void VLMSetObjForKey(const QVariant &object, const QString &key);

/// The host application's bundle. Main thread.
VELMORA_EXPORT const velmora::Bundle &VLMMainAppBundle();

/// The language codes for which the framework carries translations, in search order ("ru"
/// stands there twice). Any thread.
VELMORA_EXPORT const QStringList &VLMAllowLocale();

/// The framework's translation of a key in the user's language, or the key itself when there
/// is none. A null key counts as the empty one. The language is fixed by the first call of the
/// process. Any thread.
VELMORA_EXPORT QString VLMStringFromKey(const QString &key);

/// Prints a message to the system log (logging category "velmora", through the installed message
/// handler) while debug mode is on and ads are not removed; otherwise does nothing. Qt's rules for
/// logging categories do not silence it. Any thread.
VELMORA_EXPORT void LOG(const QString &message);

/// Lets a timer fire also while the user drags, resizes or holds a menu. Neither schedules,
/// starts nor keeps the timer; null is ignored. Main thread.
VELMORA_EXPORT void setGodTimer(const velmora::TimerPtr &timer);
