#pragma once

#include "ui/kit/sheet.h"

namespace quenoria {

class MailSection;
class SendDesk;
struct Platform;

/// The ways by which messages leave this computer: what was found, what was chosen, and whether
/// it works.
class CarriersView : public Sheet {
    Q_OBJECT

public:
    /// Desk and the platform's services outlive the sheet.
    CarriersView(const Platform &platform, SendDesk &desk, QWidget *parent);

    [[nodiscard]] bool hasUnsavedInput() const override;

protected:
    void saveInput() override;

private:
    MailSection *m_mail;
};

} // namespace quenoria
