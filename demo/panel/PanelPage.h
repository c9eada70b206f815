// SPDX-License-Identifier: Apache-2.0
#pragma once

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

/// One page of the panel: captions with their controls, in one column that scrolls.
class PanelPage : public QScrollArea {
    Q_OBJECT

public:
    PanelPage();

    /// The look of all controls on a panel.
    static QString look();
    static QLabel *newCaption(const QString &text);

protected:
    /// Starts a section; the functions below add to the last one.
    void addSection(const QString &caption);
    /// Adds a button, two in a row; one alone with wide set.
    QAbstractButton *addButton(const QString &text, const QString &name,
                               const std::function<void()> &action, bool wide = false);
    QCheckBox *addCheckBox(const QString &text, const QString &name, bool on,
                           const std::function<void(bool)> &action);
    QSlider *addSlider(const QString &text, int least, int most, int value,
                       const std::function<void(int)> &action);
    QSpinBox *addSpinBox(const QString &text, int least, int most, int value,
                         const std::function<void(int)> &action);
    QComboBox *addChoice(const QString &text, const QStringList &choices,
                         const std::function<void(int)> &action);
    void addRow(const QString &text, QWidget *control);
    void addWide(QWidget *control);
    /// To be called after the last section.
    void finish();

private:
    QVBoxLayout *m_column;
    QGridLayout *m_section = nullptr;
    bool m_half = false;
};

} // namespace demo
