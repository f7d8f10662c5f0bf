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
    void addButton(QWidget *button); ///< under the texts, two in a line

private:
    TextLabel *m_description;
    QGridLayout *m_buttons;
};

} // namespace quenoria
