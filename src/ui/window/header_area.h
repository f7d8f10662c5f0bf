#pragma once

#include <QScrollArea>

namespace quenoria {

/// Gives the header the height that it needs for its width, up to a limit; what goes beyond it
/// can be scrolled.
class HeaderArea : public QScrollArea {
    Q_OBJECT

public:
    explicit HeaderArea(QWidget *header, QWidget *parent = nullptr);

    void setMostHeight(int height);

protected:
    void resizeEvent(QResizeEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void fit();

    int m_mostHeight;
};

} // namespace quenoria
