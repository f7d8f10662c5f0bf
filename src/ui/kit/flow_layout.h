#pragma once

#include <QLayout>

#include <memory>
#include <vector>

namespace quenoria {

/// Places its items side by side like words, and goes on in a new line where the width ends. The
/// last item of a line that expands takes what the line leaves. Where the height is scarce, its
/// foldable widgets can give way.
class FlowLayout : public QLayout {
    Q_OBJECT

public:
    explicit FlowLayout(int gap, QWidget *parent = nullptr);
    ~FlowLayout() override;

    void setFoldable(const QList<QWidget *> &widgets) { m_foldable = widgets; }
    void fold(bool folded); ///< hides the foldable widgets, or shows them again
    int heightForWidth(int width, bool folded) const;

    void addItem(QLayoutItem *item) override;
    int count() const override { return int(m_items.size()); }
    QLayoutItem *itemAt(int index) const override;
    QLayoutItem *takeAt(int index) override;

    Qt::Orientations expandingDirections() const override { return {}; }
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override { return heightForWidth(width, m_isFolded); }
    QSize sizeHint() const override { return minimumSize(); }
    QSize minimumSize() const override;
    void setGeometry(const QRect &rect) override;

private:
    using Line = QList<QLayoutItem *>;
    static constexpr int lineGap = 6;

    QList<Line> linesWithin(int width, bool folded) const;
    bool takesRoom(QLayoutItem &item, bool folded) const;
    int tallest(bool folded) const;
    void placeLine(const Line &line, const QRect &rect) const;

    std::vector<std::unique_ptr<QLayoutItem>> m_items;
    QList<QWidget *> m_foldable;
    bool m_isFolded = false;
};

} // namespace quenoria
