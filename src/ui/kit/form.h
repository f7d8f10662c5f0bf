#pragma once

#include <QFrame>
#include <QList>

class QFormLayout;
class QLineEdit;
class QPushButton;

namespace quenoria {

/// A group of labelled controls on one card. Each control's accessible name is its label.
class Form : public QFrame {
    Q_OBJECT

public:
    explicit Form(QWidget *parent = nullptr);

    QLineEdit *addField(const QString &label);
    void addRow(const QString &label, QWidget *control);
    void addRow(QWidget *control); ///< under the controls, without a label
    void setRowVisible(QWidget *control, bool visible);

private:
    QFormLayout *m_rows;
};

/// A single-line field whose placeholder is also its accessible name.
[[nodiscard]] QLineEdit *makeField(const QString &placeholder);

/// Keeps the button disabled while one of the fields is blank.
void enableWhenFilled(QPushButton *button, const QList<QLineEdit *> &fields);

} // namespace quenoria
