#include "ui/window/header_texts.h"

#include "messaging/send_desk.h"
#include "ui/kit/switches.h"
#include "ui/table/contact_table_model.h"

using namespace Qt::StringLiterals;

namespace quenoria {

HeaderTexts HeaderTexts::of(SendDesk &desk, const Switches &switches,
                            const ContactTableModel &model)
{
    const ProspectStore &store = desk.store();
    const auto stopReplies = desk.stopReplies().waiting().size();
    const int limit = ProspectStore::standardSMSMonthlyRecipientLimit;
    const int thisMonth = store.smsRecipientsSentThisMonth();
    const QString emails = switches.autoValidateEmail() ? u"Envoyer les e-mails (%1)"_s
                                                        : u"Préparer les e-mails (%1)"_s;
    const bool isLimited = !switches.freeProPlan();
    return {
        .counts = u"SMS : %1  •  E-mails : %2"_s.arg(model.contacts().smsSent())
                      .arg(model.contacts().emailsSent()),
        .smsQueue = u"Préparer les SMS (%1)"_s.arg(store.sendSelection().size()),
        .emailQueue = emails.arg(store.emailSendSelection().size()),
        .deletion = u"Supprimer les contacts cochés (%1)"_s.arg(model.deleteSelection().size()),
        .stopReplies = u"Réponses STOP (%1)"_s.arg(stopReplies),
        .hasStopReplies = stopReplies > 0,
        .quota =
            isLimited ? u"SMS ce mois : %1/%2"_s.arg(thisMonth).arg(limit) : u"SMS : sans limite"_s,
        .quotaIsReached = isLimited && thisMonth >= limit,
    };
}

} // namespace quenoria
