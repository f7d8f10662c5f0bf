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

    /// Shows the section at the left edge as well, with that width; none when the width is 0.
    void pin(int section, int width);

protected:
    void paintSection(QPainter *painter, const QRect &rect, int section) const override;
    QSize sectionSizeFromContents(int section) const override;

private:
    void paintCheck(QPainter *painter, const QRect &box, bool checked) const;

    class PinnedSection;

    PinnedSection *m_pinned;
    QIcon m_ascending;
    QIcon m_descending;
};

} // namespace quenoria
