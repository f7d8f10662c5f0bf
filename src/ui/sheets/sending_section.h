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

private:
    QBoxLayout *m_column;
};

} // namespace quenoria
