#pragma once

#include "ui/window/header_texts.h"

#include <QWidget>

class QLabel;
class QLayout;
class QLineEdit;

namespace quenoria {

class CommandActions;

/// The header of the window: name and counts, the commands, the queues and the switches, the
/// search. It wraps where the window is narrow.
class WindowHeader : public QWidget {
    Q_OBJECT

public:
    /// The window's actions become buttons.
    explicit WindowHeader(const CommandActions &actions, QWidget *parent = nullptr);

    QLineEdit *searchField() const { return m_search; }
    void showTexts(const HeaderTexts &texts);

private:
    QLayout *makeTitleRow();
    QLayout *makeSearchRow();

    QLabel *m_counts;
    QLabel *m_quota;
    QLineEdit *m_search;
};

} // namespace quenoria
