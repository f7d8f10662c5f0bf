#include "store/prospect_store.h"
#include "tour/visits.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace quenoria {

namespace {

/// What the visit of a queue reads and presses.
struct QueueTexts {
    QString selection; ///< column
    QString open;      ///< button of the window, with its count
    QString prepare;   ///< primary button
    QString confirm;   ///< button
    QString automate;  ///< switch
    QString picture;   ///< beginning of the names
    QString message;   ///< for the narration
};

const QueueTexts smsTexts{u"Envoyer SMS"_s,
                          u"Préparer les SMS (%1)"_s,
                          u"Préparer ce SMS"_s,
                          u"Envoyé, suivant"_s,
                          u"Automatiser envoi SMS"_s,
                          u"file-sms"_s,
                          u"SMS"_s};
const QueueTexts emailTexts{u"Envoyer mail"_s,
                            u"Préparer les e-mails (%1)"_s,
                            u"Préparer cet e-mail"_s,
                            u"E-mail envoyé, suivant"_s,
                            u"Automatiser envoi e-mail"_s,
                            u"file-emails"_s,
                            u"e-mail"_s};

QString idOf(const ProspectStore &store, const QString &name)
{
    for (const Prospect &prospect : store.allProspects()) {
        if (prospect.label.startsWith(name))
            return prospect.id;
    }
    throw TourFailure(u"Le contact « %1 » n’a pas été importé."_s.arg(name));
}

void tick(Guide &guide, const QueueTexts &texts, const QStringList &names)
{
    for (const QString &name : names)
        guide.useCell(name, texts.selection);
    guide.say(u"%1 contacts cochés pour un %2."_s.arg(names.size()).arg(texts.message));
}

void sendOneByHand(Guide &guide, const QueueTexts &texts, qsizetype count)
{
    guide.press(texts.open.arg(count));
    guide.untilSheetIsOpen();
    guide.picture(texts.picture);
    guide.press(texts.prepare);
    guide.picture(texts.picture + u"-prepare"_s);
    guide.press(texts.confirm);
    guide.say(u"Un %1 préparé, confirmé et enregistré."_s.arg(texts.message));
}

void sendTheOthersAutomatically(Guide &guide, const QueueTexts &texts, qsizetype count)
{
    constexpr auto longestSend = 15s;
    guide.check(texts.automate, true);
    guide.picture(texts.picture + u"-question"_s);
    guide.press(u"Envoyer tel quel"_s);
    guide.picture(texts.picture + u"-automatique"_s);
    guide.untilSheetIsClosed(count * longestSend);
    guide.check(texts.automate, false);
    guide.press(u"Voir"_s);
    guide.untilSheetIsOpen();
    guide.picture(texts.picture + u"-compte-rendu"_s);
    guide.closeSheet();
    guide.say(
        u"%1 envois automatiques, à leur rythme ; la file s’est fermée d’elle-même."_s.arg(count));
}

QStringList visitQueue(Guide &guide, const ProspectStore &store, const QueueTexts &texts,
                       const QStringList &names)
{
    QStringList ids;
    for (const QString &name : names)
        ids << idOf(store, name);
    tick(guide, texts, names);
    if (texts.picture == smsTexts.picture)
        guide.picture(u"selection"_s);
    sendOneByHand(guide, texts, names.size());
    sendTheOthersAutomatically(guide, texts, names.size() - 1);
    return ids;
}

void offerStopReplies(Guide &guide)
{
    guide.press(u"Moyens d’envoi…"_s);
    guide.untilSheetIsOpen();
    guide.check(u"Proposer les réponses STOP"_s, true);
    guide.picture(u"moyens-d-envoi"_s);
    guide.closeSheet();
}

/// The first automatic SMS has been answered by then.
void decideOnStopReply(Guide &guide)
{
    guide.picture(u"reponse-stop-recue"_s);
    guide.press(u"Réponses STOP (1)"_s);
    guide.untilSheetIsOpen();
    guide.picture(u"reponses-stop"_s);
    guide.press(u"Marquer STOP"_s);
    guide.closeSheet();
    guide.say(u"Une réponse STOP reçue, et marquée."_s);
}

} // namespace

VisitedContacts visitQueues(Guide &guide, const ProspectStore &store)
{
    const QStringList names{u"BOULANGERIE DU STEÏR"_s, u"FLEURS DE KERLOUAN"_s,
                            u"PLOMBERIE LE GOFF"_s};
    VisitedContacts visited;
    offerStopReplies(guide);
    visited.emails = visitQueue(guide, store, emailTexts, names);
    visited.sms = visitQueue(guide, store, smsTexts, names);
    decideOnStopReply(guide);
    return visited;
}

} // namespace quenoria
