#pragma once

#include "platform/carriers.h"

#include <QWidget>

class QCheckBox;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace quenoria {

class StatusLabel;
class TextLabel;

/// One carrier as the user chooses it: its name, its state, what it asks for, and by which road
/// it sends.
class CarrierRow : public QWidget {
    Q_OBJECT

public:
    explicit CarrierRow(const Carrier &carrier, QWidget *parent = nullptr);

    const QString &id() const { return m_carrier.id; }
    QRadioButton *choice() const { return m_choice; }

    /// Follows the carrier without touching what the user is typing.
    void show(const Carrier &carrier, bool isChosen, bool isFixed);

Q_SIGNALS:
    void chosen();
    void pinTyped(const QString &pin, quenoria::PinUse use);
    void pinForgotten();

private:
    void makePinRow();
    void sendPin();

    Carrier m_carrier;
    QRadioButton *m_choice;
    StatusLabel *m_state;
    QWidget *m_pinRow;
    QLineEdit *m_pin;
    QCheckBox *m_keepPin;
    QPushButton *m_forgetPin;
    QPushButton *m_copy;
    TextLabel *m_road;
};

} // namespace quenoria
