#pragma once

#include <QScrollArea>

namespace quenoria {

/// The middle of a sheet. Its parts shrink as far as they can; past that they scroll.
class MiddleArea : public QScrollArea {
    Q_OBJECT

public:
    explicit MiddleArea(QWidget *parent = nullptr);

    /// The least that shows every part at the width without scrolling.
    QSize need(int width) const;

    QSize sizeHint() const override { return minimumSizeHint(); }
    QSize minimumSizeHint() const override;

protected:
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
};

} // namespace quenoria
