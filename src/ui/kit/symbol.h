#pragma once

#include "ui/kit/theme.h"

#include <QIcon>
#include <QWidget>

namespace quenoria {

/// One of the product's own drawings ("plus.circle.fill"), sharp at any size and tinted when it
/// is painted, so that it follows a change from light to dark. An unknown name is a programming
/// error and stops a debug build.
[[nodiscard]] QIcon symbol(const QString &name, Tint tint = Tint::text);

/// A symbol that stands by itself in a layout. It says nothing to a screen reader: the text
/// beside it does.
class SymbolView : public QWidget {
    Q_OBJECT

public:
    SymbolView(const QIcon &icon, int side, QWidget *parent = nullptr);

    void setIcon(const QIcon &icon);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QIcon m_icon;
};

} // namespace quenoria
