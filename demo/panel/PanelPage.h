// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "demo/Text.h"

#include <QtWidgets/QScrollArea>

#include <functional>

class QAbstractButton;
class QCheckBox;
class QComboBox;
class QGridLayout;
class QLabel;
class QSlider;
class QSpinBox;
class QVBoxLayout;

namespace demo {

/// One page of the panel: sections of labelled controls in a column that scrolls.
class PanelPage : public QScrollArea {
    Q_OBJECT

public:
    PanelPage();

    /// The style sheet for the controls of all pages.
    static QString look();
    static QLabel *newCaption(Text::Key text);

protected:
    /// Starts a section, to which the functions below add.
    void addSection(Text::Key caption);
    /// Adds a button. Two share a row, unless one is wide.
    QAbstractButton *addButton(Text::Key text, const QString &name,
                               const std::function<void()> &action, bool wide = false);
    QCheckBox *addCheckBox(Text::Key text, const QString &name, bool on,
                           const std::function<void(bool)> &action);
    QSlider *addSlider(Text::Key text, int least, int most, int value,
                       const std::function<void(int)> &action);
    QSpinBox *addSpinBox(Text::Key text, int least, int most, int value,
                         const std::function<void(int)> &action);
    QComboBox *addChoice(Text::Key text, const QStringList &choices,
                         const std::function<void(int)> &action);
    void addRow(Text::Key text, QWidget *control);
    void addWide(QWidget *control);
    /// Ends the page. To be called after the last section.
    void finish();

private:
    QVBoxLayout *m_column;
    QGridLayout *m_section = nullptr;
    bool m_half = false;
};

} // namespace demo
