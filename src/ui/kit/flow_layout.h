#pragma once

#include <QLayout>

#include <memory>
#include <vector>

namespace quenoria {

/// Places its items side by side like words, and goes on in a new line where the width ends. The
/// last item of a line that expands takes what the line leaves.
class FlowLayout : public QLayout {
    Q_OBJECT

public:
    explicit FlowLayout(int gap, QWidget *parent = nullptr);
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
    using Line = QList<QLayoutItem *>;
    static constexpr int lineGap = 6;

    QList<Line> linesWithin(int width) const;
    int tallest() const;
    void placeLine(const Line &line, const QRect &rect) const;

    std::vector<std::unique_ptr<QLayoutItem>> m_items;
};

} // namespace quenoria
