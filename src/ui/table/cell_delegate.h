#pragma once

#include "ui/table/cell_layout.h"

#include <QCache>
#include <QFont>
#include <QHash>
#include <QIcon>
#include <QPersistentModelIndex>
#include <QStyledItemDelegate>

namespace quenoria {

/// The button under the mouse.
struct HotButton {
    QPersistentModelIndex cell;
    qsizetype button = -1;
    bool isPressed = false;

    bool operator==(const HotButton &) const = default;
};

/// Paints every cell of the table from the roles of its index, and edits those that hold a field.
class CellDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    /// The hot button belongs to the view, which knows the mouse.
    CellDelegate(const HotButton &hot, QObject *parent);

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    bool helpEvent(QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option,
                   const QModelIndex &index) override;

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const override;
    void setEditorData(QWidget *editor, const QModelIndex &index) const override;
    void setModelData(QWidget *editor, QAbstractItemModel *model,
                      const QModelIndex &index) const override;
    void updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option,
                              const QModelIndex &index) const override;

protected:
    /// Clicks are the view's: nothing here.
    bool editorEvent(QEvent *, QAbstractItemModel *, const QStyleOptionViewItem &,
                     const QModelIndex &) override
    {
        return false;
    }

private:
    void paintGround(QPainter *painter, const QStyleOptionViewItem &option) const;
    void paintCheck(QPainter *painter, const QStyleOptionViewItem &option, const QRect &box,
                    const QModelIndex &index) const;
    void paintFrame(QPainter *painter, const QStyleOptionViewItem &option, const QRect &frame,
                    const QModelIndex &index) const;
    void paintTexts(QPainter *painter, const QStyleOptionViewItem &option, const CellLayout &layout,
                    const QModelIndex &index) const;
    void paintButtons(QPainter *painter, const QStyleOptionViewItem &option,
                      const QList<QRect> &rects, const QModelIndex &index) const;
    QIcon icon(const QString &name) const;

    QString elidedOnce(const QFont &font, const QString &text, int width) const;

    const HotButton &m_hot;
    /// Most texts of a page stand in many rows: captions, templates, departments.
    mutable QCache<std::pair<QString, int>, QString> m_elided;
    mutable QFont m_elidedFont;
    QIcon m_stopped;
    QIcon m_sent;
    mutable QHash<QString, QIcon> m_icons;
};

} // namespace quenoria
