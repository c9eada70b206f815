// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "demo/Surroundings.h"
#include "demo/panel/PanelPage.h"

namespace demo {

class Reader;

/// The reader's surroundings: language, scale, colours, reading direction, motion; and what a
/// screen reader says.
class ReaderPage : public PanelPage {
    Q_OBJECT

public:
    explicit ReaderPage(Reader &reader);

private:
    void addLanguage();
    void addScale();
    void addSwitches();
    /// Changes the surroundings and shows whether that needs a restart.
    void change(const std::function<void(Surroundings &)> &change);

    Reader &m_reader;
    QAbstractButton *m_restart = nullptr;
};

} // namespace demo
