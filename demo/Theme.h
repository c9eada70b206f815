// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtGui/QColor>
#include <QtGui/QFont>

class QApplication;

namespace demo {

/// The journal's colours and typefaces. They do not follow the desktop's, so that the journal looks
/// the same everywhere.
namespace theme {

inline const QColor Paper(0xfb, 0xf8, 0xf1);
inline const QColor PaperShade(0xf1, 0xeb, 0xdf);
inline const QColor Line(0xe3, 0xdb, 0xcb);
inline const QColor Ink(0x26, 0x2b, 0x2e);
inline const QColor InkSoft(0x6b, 0x6d, 0x68);
inline const QColor Deep(0x18, 0x32, 0x39);
inline const QColor DeepRaised(0x26, 0x48, 0x50);
inline const QColor OnDeep(0xf3, 0xed, 0xe0);
inline const QColor OnDeepSoft(0xa3, 0xb9, 0xb9);
inline const QColor Accent(0xb6, 0x4a, 0x2f);
inline const QColor AccentDark(0x97, 0x3a, 0x23);

/// Typeface for running text. @param size in device-independent pixels
QFont text(int size, QFont::Weight weight = QFont::Normal);
/// Typeface for headings.
QFont heading(int size, QFont::Weight weight = QFont::Bold);
/// Typeface for headings of sections: capitals with wide spacing.
QFont label(int size);

/// Sets style, palette and font of the whole application.
void applyTo(QApplication &application);

} // namespace theme
} // namespace demo
