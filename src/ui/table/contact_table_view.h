#pragma once

#include "model/id_set.h"
#include "ui/table/cell_delegate.h"

#include <QTableView>

#include <optional>

namespace quenoria {

class ContactTableModel;
struct Prospect;

/// The table on the screen: arrows move by cell, Space uses the cell, Enter edits the contact.
/// While it is scrolled sideways past its beginning, the contact's column stays pinned at the left.
class ContactTableView : public QTableView {
    Q_OBJECT

public:
    explicit ContactTableView(ContactTableModel &model, QWidget *parent = nullptr);

    /// The contact of the current row, or null.
    const Prospect *currentContact() const;
    const Prospect *contactAt(QPoint point) const; ///< of the row there, or null

    /// Those of the selected rows; more than one once the user selects several.
    IdSet selectedContacts() const;

    /// Whether every selected contact that can be ticked in the column is.
    bool selectionIsTicked(int column) const;
    void toggleSelection(int column); ///< asks for its tick, see tickRequested()

    /// Scrolls to the contact, if it is displayed, as far as is needed; the current cell stays.
    void reveal(const QString &contactId);

    /// Marks the row there as the one on which a file would be dropped, or no row.
    void markDrop(std::optional<QPoint> point);

    /// Writes what is being typed in a cell, which would go with its editor.
    void keepTypedText();

    // The widths that the user gave the columns, as a text to keep. One that fits another set of
    // columns is ignored.
    QString columnWidths() const;
    void setColumnWidths(const QString &widths);
    void resetColumnWidths();

    QSize minimumSizeHint() const override; ///< that shows one row
    QModelIndex indexAt(const QPoint &point) const override;
    QRect visualRect(const QModelIndex &index) const override;
    void scrollTo(const QModelIndex &index, ScrollHint hint = EnsureVisible) override;

Q_SIGNALS:
    void editRequested(const QString &contactId);
    void actionRequested(quenoria::RowAction action, const QString &contactId);
    /// A check box was used while several rows are selected: it is meant for all of them.
    void tickRequested(int column, bool ticked);
    void menuRequested(const QString &contactId, const QPoint &globalPosition);

protected:
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex &index,
                                                         const QEvent *event) const override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    bool viewportEvent(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void scrollContentsBy(int dx, int dy) override;
    void updateGeometries() override;

private:
    /// What is current and in sight, while the rows are replaced.
    struct KeptPlace {
        struct Sight {
            QString contact;
            int y; ///< of its row, in the viewport
        };

        QString contact; ///< the current one
        int row = 0;
        int column = 0;
        std::vector<Sight> sight; ///< empty where a search replaces the rows
        IdSet selected;           ///< if they are several, and no search replaces the rows
    };

    void followHeader();
    void keepPlace();
    void keepSight();
    void returnToPlace();
    void returnToSight();
    void selectAgain(const IdSet &ids);
    void keepCurrentInSight(int height); ///< that the view had
    void fitContactColumn();
    void columnResized(int column, int size);
    int leastContactWidth() const;

    int pinnedWidth() const; ///< 0 while the contact's column is where it belongs
    void showPinnedHeader();
    void paintPinned(const QRegion &region);
    void paintDropMark();
    QStyleOptionViewItem optionFor(const QModelIndex &index, const QRect &rect) const;

    void useCell(const QModelIndex &index);
    void clickCell(const QModelIndex &index, QPoint point);
    void toggle(const QModelIndex &index);
    std::vector<int> selectedRows() const;
    bool selectsSeveral() const;
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
    QPersistentModelIndex m_dropRow; ///< invalid while nothing is dragged over a row
    KeptPlace m_kept;
    std::optional<int> m_contactWidth; ///< that the user gave the contact's column
    bool m_isFitting = false;
};

} // namespace quenoria
