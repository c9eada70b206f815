// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtWidgets/QWidget>

#include <memory>

class QLabel;

namespace demo {

class ScreenReaderVoice;

/// A small window at the bottom of the screen with what a screen reader says, newest last. It is a
/// window of its own because splash screens cover the journal's windows. Listens only while it is
/// visible.
class SpeechWindow : public QWidget {
    Q_OBJECT

public:
    SpeechWindow();
    ~SpeechWindow() override;

Q_SIGNALS:
    void closed();

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void add(const QString &sentence);
    void place();

    std::unique_ptr<ScreenReaderVoice> m_voice;
    QStringList m_sentences;
    QLabel *m_lines;
};

} // namespace demo
