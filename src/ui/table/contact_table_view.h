#pragma once

#include "ui/table/cell_delegate.h"

#include <QTableView>

namespace quenoria {

class ContactTableModel;
struct Prospect;

/// The table on the screen: arrows move by cell, Space uses the cell, Enter edits the contact.
class ContactTableView : public QTableView {
    Q_OBJECT

public:
    explicit ContactTableView(ContactTableModel &model, QWidget *parent = nullptr);

    /// The contact of the current row, or null.
    const Prospect *currentContact() const;

    // The widths that the user gave the columns, as a text to keep. One that fits another set of
    // columns is ignored.
    QString columnWidths() const;
    void setColumnWidths(const QString &widths);
    void resetColumnWidths();

Q_SIGNALS:
    void editRequested(const QString &contactId);
    void actionRequested(quenoria::RowAction action, const QString &contactId);
    void menuRequested(const QString &contactId, const QPoint &globalPosition);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    bool viewportEvent(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void followHeader();
    void keepTypedText();
    void keepPlace();
    void returnToPlace();
    void fitContactColumn();
    void columnResized(int column, int size);

    void useCell(const QModelIndex &index);
    void clickCell(const QModelIndex &index, QPoint point);
    void toggle(const QModelIndex &index);
    void pick(const QModelIndex &index);
    void offerButtons(const QModelIndex &index);
    void trigger(const QModelIndex &index, qsizetype button);
    CellLayout layoutAt(const QModelIndex &index) const;
    QPoint below(const QModelIndex &index) const;
    QString contactIdAt(const QModelIndex &index) const;
    void setHot(const HotButton &hot);

    ContactTableModel &m_model;
    HotButton m_hot;
    QPersistentModelIndex m_pressed; ///< cell that took the mouse button
    QPersistentModelIndex m_clicked; ///< cell of the last whole click
    QString m_keptContact;           ///< current one, while the rows are replaced
    int m_keptColumn = 0;
    int m_contactWidth; ///< of the contact's column when there is no room to spare
    bool m_isFitting = false;
};

} // namespace quenoria
