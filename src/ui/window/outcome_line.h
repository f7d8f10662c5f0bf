#pragma once

#include <QTimer>
#include <QWidget>

#include <functional>

class QPushButton;
class QToolButton;

namespace quenoria {

class TextLabel;

/// The line at the bottom of the window that says what was last done, with a button where there is
/// something to do about it. It takes no room while it has nothing to say. It goes by its cross, or
/// by itself a while after somebody was there to read it: a mouse or key moved since it was told.
class OutcomeLine : public QWidget {
    Q_OBJECT

public:
    explicit OutcomeLine(QWidget *parent = nullptr);

    void tell(const QString &text);
    void tell(const QString &text, const QString &actionText, const std::function<void()> &act);
    QString text() const;

    bool eventFilter(QObject *watched, QEvent *event) override;

protected:
    void hideEvent(QHideEvent *event) override;

private:
    bool isLookedAt() const;
    void leave();

    TextLabel *m_text;
    QPushButton *m_act;
    QToolButton *m_close;
    std::function<void()> m_deed;
    QTimer m_stay;
};

} // namespace quenoria
