#pragma once

#include <QWidget>

class QGridLayout;

namespace quenoria {

class TextLabel;

/// What stands where a list would be while it is empty: a large symbol, what is missing, and what
/// to do next.
class EmptyState : public QWidget {
    Q_OBJECT

public:
    EmptyState(const QString &symbolName, const QString &title, const QString &description,
               QWidget *parent = nullptr);

    void setDescription(const QString &description);
    void addButton(QWidget *button); ///< under the texts, two in a line if there is room

    QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    void placeButtons();
    int widestButton() const;

    TextLabel *m_description;
    QGridLayout *m_buttonGrid;
    QList<QWidget *> m_buttons;
    int m_columns = 0; ///< in which they stand
};

} // namespace quenoria
