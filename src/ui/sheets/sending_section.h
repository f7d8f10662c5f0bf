#pragma once

#include <QFrame>

class QBoxLayout;

namespace quenoria {

/// One kind of message in the sheet of the ways to send, on a card with a heading.
class SendingSection : public QFrame {
    Q_OBJECT

protected:
    explicit SendingSection(const QString &heading, QWidget *parent = nullptr);

    QBoxLayout *column() const { return m_column; }

    /// Scrolls the sheet to an outcome that has just appeared, once it has its place.
    void reveal(QWidget *outcome);

private:
    QBoxLayout *m_column;
};

} // namespace quenoria
