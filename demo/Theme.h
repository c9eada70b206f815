// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtGui/QColor>
#include <QtGui/QFont>

class QApplication;

namespace demo {

/// The journal's colours and typefaces. They do not follow the desktop's, so that the journal looks
/// the same everywhere; the reader chooses between light and dark.
namespace theme {

inline QColor Paper(0xfb, 0xf8, 0xf1);
inline QColor PaperShade(0xf1, 0xeb, 0xdf);
inline QColor Surface(Qt::white); ///< of lists, fields and buttons
inline QColor Line(0xe3, 0xdb, 0xcb);
inline QColor LineStrong(0xa2, 0x9c, 0x91);
inline QColor Ink(0x26, 0x2b, 0x2e);
inline QColor InkSoft(0x6b, 0x6d, 0x68);
inline QColor Deep(0x18, 0x32, 0x39);
inline QColor DeepRaised(0x26, 0x48, 0x50);
inline QColor OnDeep(0xf3, 0xed, 0xe0);
inline QColor OnDeepSoft(0xa3, 0xb9, 0xb9);
inline QColor Accent(0xb6, 0x4a, 0x2f);
inline QColor OnAccent(Qt::white);
inline QColor AccentDark(0x97, 0x3a, 0x23); ///< has more contrast to paper than the accent

/// Replaces the colours above by those for dark surroundings. To be called before any of them is
/// used.
void useDarkColors();

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
