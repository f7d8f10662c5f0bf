#pragma once

#include "ui/kit/sheet.h"

namespace quenoria {

class MailSection;
class ProspectStore;
struct Platform;

/// The ways by which messages leave this computer: what was found, what was chosen, and whether
/// it works.
class CarriersView : public Sheet {
    Q_OBJECT

public:
    /// The platform's services outlive the sheet.
    CarriersView(const Platform &platform, ProspectStore &store, QWidget *parent);

    [[nodiscard]] bool hasUnsavedInput() const override;

protected:
    void saveInput() override;

private:
    MailSection *m_mail;
};

} // namespace quenoria
