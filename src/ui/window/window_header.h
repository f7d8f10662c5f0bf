#pragma once

#include "ui/window/header_texts.h"

#include <QWidget>

class QLayout;
class QLineEdit;

namespace quenoria {

class ActionButton;
class CommandActions;
class FlowLayout;
class TextLabel;

/// The header of the window: a line of name and counts, a line of commands and queues, and the
/// switches with the search, which wrap where the window is narrow.
class WindowHeader : public QWidget {
    Q_OBJECT

public:
    /// The window's actions become buttons.
    explicit WindowHeader(const CommandActions &actions, QWidget *parent = nullptr);

    QLineEdit *searchField() const { return m_search; }
    void addFilters(QWidget *filters); ///< beside the search
    void showTexts(const HeaderTexts &texts);

private:
    QWidget *makeTitleLine(const CommandActions &actions);
    FlowLayout *makeSwitchRow(const CommandActions &actions);
    void furnishSearch();

    ActionButton *m_stopReplies = nullptr;
    TextLabel *m_counts;
    TextLabel *m_quota;
    QLineEdit *m_search;
    FlowLayout *m_searchRow;
};

} // namespace quenoria
