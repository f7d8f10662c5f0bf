#pragma once

#include "platform/carriers.h"
#include "ui/sheets/sending_section.h"

class QButtonGroup;
class QCheckBox;
class QPushButton;
class QRadioButton;

namespace quenoria {

class CarrierRow;
class ProspectStore;
class SendDesk;

/// The carriers of SMS found on this computer, the choice among them, and its test.
class SmsSection : public SendingSection {
    Q_OBJECT

public:
    SmsSection(Carriers &carriers, SendDesk &desk, QWidget *parent = nullptr);

private:
    void addTest();
    void addStopReplies(SendDesk &desk);
    void refresh() override;
    void rebuild(const std::vector<Carrier> &found);
    void orderKeyboard();
    void test();
    void tellAccepted() override;
    void showUnlocked(const std::optional<QString> &refusal);
    void showPinKept(bool isKept);
    void follow(CarrierRow *row);

    Carriers &m_carriers;
    ProspectStore &m_store;
    QBoxLayout *m_list;
    std::vector<CarrierRow *> m_rows;
    QRadioButton *m_none;
    QButtonGroup *m_choices; ///< the rows' and the one for none
    QPushButton *m_test;
    QCheckBox *m_offer; ///< of the replies that say STOP
};

} // namespace quenoria
