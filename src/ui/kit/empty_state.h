#pragma once

#include <QWidget>

class QHBoxLayout;

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
    void addButton(QWidget *button); ///< in one line under the texts

private:
    TextLabel *m_description;
    QHBoxLayout *m_buttons;
};

} // namespace quenoria
