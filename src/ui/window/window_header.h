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
/// switches with the search, which wrap where the window is narrow. Where it is low as well, what
/// the menus say too gives way.
class WindowHeader : public QWidget {
    Q_OBJECT

public:
    /// The window's actions become buttons.
    explicit WindowHeader(const CommandActions &actions, QWidget *parent = nullptr);

    QLineEdit *searchField() const { return m_search; }
    void addFilters(QWidget *filters); ///< beside the search
    void showTexts(const HeaderTexts &texts);

    /// Folds as much as the height asks for that there is at the width, and no more.
    void fitInto(QSize room);
    int leastHeight() const; ///< with all folded that can be

private:
    /// What is folded, the least important first; each stands for those before it too.
    enum class Fold { nothing, switches, title, commands };

    int need(int width, Fold fold) const;
    QWidget *makeTitleLine(const CommandActions &actions);
    FlowLayout *makeSwitchRow(const CommandActions &actions);
    void furnishSearch();

    ActionButton *m_stopReplies = nullptr;
    TextLabel *m_counts;
    TextLabel *m_quota;
    QLineEdit *m_search;
    QWidget *m_title;
    QWidget *m_commands;
    FlowLayout *m_searchRow;
};

} // namespace quenoria
