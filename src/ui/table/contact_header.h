#pragma once

#include <QHeaderView>
#include <QIcon>

namespace quenoria {

/// The table's header: a click sorts, the current column shows its direction, and a check box
/// stands where the model gives a header a check state.
class ContactHeader : public QHeaderView {
    Q_OBJECT

public:
    explicit ContactHeader(QWidget *parent = nullptr);

    QSize sizeHint() const override;

protected:
    void paintSection(QPainter *painter, const QRect &rect, int section) const override;

private:
    void paintCheck(QPainter *painter, const QRect &box, bool checked) const;

    QIcon m_ascending;
    QIcon m_descending;
};

} // namespace quenoria
