#pragma once

#include <QLayout>

#include <memory>
#include <vector>

namespace quenoria {

/// Places its items side by side like words, and goes on in a new line where the width ends.
class FlowLayout : public QLayout {
    Q_OBJECT

public:
    /// Items whose visible part begins further right may hang over at the left.
    explicit FlowLayout(int gap, int overhang = 0);
    ~FlowLayout() override;

    void addItem(QLayoutItem *item) override;
    int count() const override { return int(m_items.size()); }
    QLayoutItem *itemAt(int index) const override;
    QLayoutItem *takeAt(int index) override;

    Qt::Orientations expandingDirections() const override { return {}; }
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    QSize sizeHint() const override { return minimumSize(); }
    QSize minimumSize() const override;
    void setGeometry(const QRect &rect) override;

private:
    int tallest() const;

    /// Calls place(item, rectangle) for each item within the width; gives the whole height.
    template <typename Place>
    int arrange(const QRect &rect, Place &&place) const;

    int m_overhang;
    std::vector<std::unique_ptr<QLayoutItem>> m_items;
};

} // namespace quenoria
