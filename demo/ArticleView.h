// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QList>
#include <QtWidgets/QScrollArea>

class QLabel;
class QVBoxLayout;

namespace demo {

struct JournalEntry;
class SceneryView;
class ScrollFade;

/// Shows one entry of the journal: heading, illustration, facts and text, in a column whose width
/// is limited.
class ArticleView : public QScrollArea {
    Q_OBJECT

public:
    explicit ArticleView(QWidget *parent = nullptr);

    void show(const JournalEntry &entry);

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    void setTextSizes(int width);

    QWidget *m_column;
    QVBoxLayout *m_layout;
    QLabel *m_place;
    QLabel *m_title;
    QLabel *m_facts;
    QLabel *m_lead;
    QLabel *m_text;
    SceneryView *m_picture;
    ScrollFade *m_fade;
};

} // namespace demo
