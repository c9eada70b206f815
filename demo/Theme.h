// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtGui/QColor>
#include <QtGui/QFont>

class QApplication;

namespace demo {

/// The journal's colours and typefaces. They are its own and fixed, so that it looks the same
/// on every desktop.
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

/// Typeface for running text. @param size in points of the 96 dpi grid, that is in pixels
QFont text(int size, QFont::Weight weight = QFont::Normal);
/// Typeface for headings.
QFont heading(int size, QFont::Weight weight = QFont::Bold);
/// Small capitals for labels, letters spaced.
QFont label(int size);

/// Style, palette and font for the whole application.
void applyTo(QApplication &application);

} // namespace theme
} // namespace demo
