#pragma once

#include "ui/table/cell_roles.h"

#include <QModelIndex>
#include <QWidget>

class QScrollArea;

namespace quenoria {

class ContactTableModel;
class PanelField;
class TextLabel;

/// The current contact beside the table: what the cells of its row show, one under the other, and
/// what they do. It reads the table's columns, and every act goes the way of the cell.
class ContactPanel : public QWidget {
    Q_OBJECT

public:
    /// Whether the user wants it, where he has said so.
    static const QString preference;

    explicit ContactPanel(ContactTableModel &model, QWidget *parent = nullptr);

    /// Shows the row of this cell; what was being typed for another one is written first.
    void follow(const QModelIndex &current);

    /// Writes what is being typed.
    void keepTypedText();

    /// Gives the keyboard to the first thing that can be used.
    void enter();

    // With a height for its width, it would be given no less than it would like: the header, which
    // cannot shrink, would lose what it lacks.
    bool hasHeightForWidth() const override { return false; }
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    void actionRequested(quenoria::RowAction action, const QString &contactId);

protected:
    void showEvent(QShowEvent *event) override;

private:
    void build();
    void refresh();

    ContactTableModel &m_model;
    QPersistentModelIndex m_current;
    TextLabel *m_title;
    QWidget *m_contents;
    QScrollArea *m_area;
    QList<PanelField *> m_fields;
};

} // namespace quenoria
