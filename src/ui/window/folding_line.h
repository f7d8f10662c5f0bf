#pragma once

#include <QWidget>

class QHBoxLayout;

namespace quenoria {

/// Parts on one line. Where the width does not hold them all, the least important ones give way.
class FoldingLine : public QWidget {
    Q_OBJECT

public:
    explicit FoldingLine(int gap, QWidget *parent = nullptr);

    void addWidget(QWidget *part); ///< always shown
    void addStretch();

    /// Given from the one to keep longest to the one that gives way first.
    void setFoldable(const QList<QWidget *> &parts) { m_foldable = parts; }

    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent *event) override;

private:
    void fold();

    QHBoxLayout *m_row;
    QList<QWidget *> m_parts;
    QList<QWidget *> m_foldable;
};

} // namespace quenoria
