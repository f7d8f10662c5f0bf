#include "ui/sheets/carriers_view.h"

#include "platform/platform.h"
#include "ui/kit/status_label.h"
#include "ui/sheets/mail_section.h"
#include "ui/sheets/sms_section.h"

#include <QBoxLayout>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace quenoria {

CarriersView::CarriersView(const Platform &platform, SendDesk &desk, QWidget *parent)
    : Sheet(u"Moyens d’envoi"_s, {720, 700}, parent),
      m_mail(new MailSection(platform.mailbox, platform.preferences))
{
    addHeader(windowTitle(), u"Choisissez par où partent les messages que l’application envoie "
                             "elle-même."_s);
    if (platform.carriers.isFixed()) {
        auto *notice = new StatusLabel;
        notice->setStatus(u"En démonstration, les moyens d’envoi sont montrés sans pouvoir être "
                          "changés : rien ne quitte cet ordinateur."_s,
                          Tint::accent, u"info.circle"_s);
        column()->addWidget(notice);
    }
    column()->addWidget(new SmsSection(platform.carriers, desk));
    column()->addWidget(m_mail);
    column()->addStretch();
    for (QPushButton *button : findChildren<QPushButton *>())
        button->setAutoDefault(false); // Enter in a field acts there and leaves the sheet open
}

bool CarriersView::hasUnsavedInput() const { return m_mail->hasUnsavedInput(); }

void CarriersView::saveInput() { m_mail->save(); }

} // namespace quenoria
