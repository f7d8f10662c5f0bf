#pragma once

#include <QObject>
#include <QPointer>

class QDialog;
class QWidget;

namespace quenoria {

class SendDesk;

/// Lets the application end only once every message that left is recorded.
class Farewell : public QObject {
    Q_OBJECT

public:
    Farewell(SendDesk &desk, QWidget *window);

    /// Whether the window may close at once. If not, it says what it waits for and emits ready()
    /// when the last send is recorded.
    bool mayLeave();

Q_SIGNALS:
    void ready();

private:
    void look();

    SendDesk &m_desk;
    QWidget *m_window;
    QPointer<QDialog> m_notice;
};

} // namespace quenoria
