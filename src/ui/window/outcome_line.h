#pragma once

#include <QWidget>

#include <functional>

class QPushButton;

namespace quenoria {

class TextLabel;

/// The line at the bottom of the window that says what was last done, with a button where there is
/// something to do about it. It takes no room while it has nothing to say.
class OutcomeLine : public QWidget {
    Q_OBJECT

public:
    explicit OutcomeLine(QWidget *parent = nullptr);

    void tell(const QString &text);
    void tell(const QString &text, const QString &actionText, const std::function<void()> &act);
    QString text() const;

private:
    TextLabel *m_text;
    QPushButton *m_act;
    QPushButton *m_close;
    std::function<void()> m_deed;
};

} // namespace quenoria
