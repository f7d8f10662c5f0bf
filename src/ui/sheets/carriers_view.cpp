#include "ui/sheets/carriers_view.h"

#include "platform/carriers.h"
#include "ui/kit/status_label.h"
#include "ui/sheets/sms_section.h"

#include <QBoxLayout>

using namespace Qt::StringLiterals;

namespace quenoria {

CarriersView::CarriersView(Carriers &carriers, ProspectStore &store, QWidget *parent)
    : Sheet(u"Moyens d’envoi"_s, {720, 620}, parent)
{
    addHeader(windowTitle(), u"Choisissez par où partent les messages que l’application envoie "
                             "elle-même."_s);
    if (carriers.isFixed()) {
        auto *notice = new StatusLabel;
        notice->setStatus(u"En démonstration, les moyens d’envoi sont montrés sans pouvoir être "
                          "changés : rien ne quitte cet ordinateur."_s,
                          Tint::accent, u"info.circle"_s);
        column()->addWidget(notice);
    }
    column()->addWidget(new SmsSection(carriers, store));
    column()->addStretch();
}

} // namespace quenoria
