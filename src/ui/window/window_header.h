#pragma once

#include "ui/window/header_texts.h"

#include <QList>
#include <QWidget>

class QAction;
class QLabel;
class QLayout;
class QLineEdit;

namespace quenoria {

/// The header of the window: name and counts, the commands, the queues and the switches, the
/// search. It wraps where the window is narrow.
class WindowHeader : public QWidget {
    Q_OBJECT

public:
    /// The actions become buttons, in their order: commands first, then the queues.
    WindowHeader(const QList<QAction *> &commands, const QList<QAction *> &queues,
                 const QList<QAction *> &switches, QWidget *parent = nullptr);

    QLineEdit *searchField() const { return m_search; }
    void showTexts(const HeaderTexts &texts);

private:
    QLayout *makeTitleRow();
    QLayout *makeQueueRow(const QList<QAction *> &queues, const QList<QAction *> &switches);
    QLayout *makeSearchRow();

    QLabel *m_counts;
    QLabel *m_quota;
    QLineEdit *m_search;
};

} // namespace quenoria
