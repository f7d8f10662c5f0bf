#pragma once

#include "ui/table/cell_roles.h"

#include <QPersistentModelIndex>
#include <QWidget>

class QCheckBox;
class QComboBox;
class QLineEdit;
class QPushButton;
class QVBoxLayout;

namespace quenoria {

class ContactTableModel;
class FlowLayout;
class TextLabel;

/// One column of one contact as a control with its caption. It knows the cell's roles and nothing
/// of contacts, as the table's delegate does, and edits through the model.
class PanelField : public QWidget {
    Q_OBJECT

public:
    PanelField(ContactTableModel &model, int column);

    /// Shows this column of the row. What is being typed for the same row stays.
    void follow(const QModelIndex &row);

    /// Writes what is being typed.
    void keepTypedText();

Q_SIGNALS:
    void actionRequested(quenoria::RowAction action);

private:
    void build();
    void addCaption(const QString &header);
    void addCheck();
    void addPicker();
    void addLine();
    void showText();
    void showCheck();
    void showChoices();
    void showLine();
    void showButtons();
    QPushButton *button(qsizetype which);

    ContactTableModel &m_model;
    int m_column;
    CellKind m_kind;
    QPersistentModelIndex m_cell;
    QVBoxLayout *m_parts;
    TextLabel *m_text = nullptr;
    TextLabel *m_warning = nullptr;
    QCheckBox *m_check = nullptr;
    QComboBox *m_picker = nullptr;
    QLineEdit *m_line = nullptr;
    FlowLayout *m_buttonRow = nullptr;
    QList<QPushButton *> m_buttons;
    CellButtons m_offered;
};

} // namespace quenoria
