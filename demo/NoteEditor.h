// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtWidgets/QWidget>

class QLineEdit;
class QPlainTextEdit;
class QVBoxLayout;

namespace demo {

/// The page for a note of the reader's own. It shows that typing is safe: splash screens wait until
/// it pauses, and no key reaches the text while it is covered.
class NoteEditor : public QWidget {
    Q_OBJECT

public:
    explicit NoteEditor(QWidget *parent = nullptr);

    int words() const;

Q_SIGNALS:
    void wordsChanged();

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    QVBoxLayout *m_layout;
    QLineEdit *m_title;
    QPlainTextEdit *m_text;
};

} // namespace demo
