#pragma once

#include "model/id_set.h"

#include <QFrame>

class QListWidget;
class QListWidgetItem;

namespace quenoria {

/// A list to choose from under the button that opened it. Several can be chosen; each choice counts
/// at once, and Escape or a click elsewhere closes the list.
class ChoicePopup : public QFrame {
    Q_OBJECT

public:
    struct Choice {
        QString id;
        QString text;
        bool isChosen = false;
    };

    /// Deletes itself once it is closed.
    ChoicePopup(const QString &name, const std::vector<Choice> &choices, QWidget *parent);

    void openAt(QPoint globalPosition);

Q_SIGNALS:
    void chosen(const quenoria::IdSet &ids);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void toggle(QListWidgetItem *item);

    QListWidget *m_list;
};

/// A calendar under the button that opened it; gives the day that is clicked, or chosen by Enter.
class DayPopup : public QFrame {
    Q_OBJECT

public:
    DayPopup(const QDate &latest, QWidget *parent);

    void openAt(QPoint globalPosition);

Q_SIGNALS:
    void chosen(const QDate &day);
};

} // namespace quenoria
