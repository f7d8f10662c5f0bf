#include "platform/linux/smtp_words.h"

#include "platform/mail_providers.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

enum class Refused { later, identity, sender, recipient, size, mailboxFull, sendingQuota, message };

/// The enhanced status that begins a reply, without its class.
///
///   "5.2.2 Mailbox full" -> "2.2"
QString subject(const SmtpReply &reply)
{
    static const QRegularExpression status(u"^[245]\\.(\\d{1,3}\\.\\d{1,3})\\b"_s);
    return status.match(reply.text).captured(1);
}

/// The status tells more than the code; the code more than the command that was answered.
Refused refusal(const SmtpReport &report)
{
    constexpr int noRoom = 452, tooMuch = 552, firstPermanent = 500;
    const int code = report.reply.code;
    const QString about = subject(report.reply);
    if (about == u"2.2"_s || (about.isEmpty() && code == noRoom))
        return Refused::mailboxFull;
    if (about == u"4.5"_s)
        return Refused::sendingQuota;
    if (about == u"3.4"_s || code == tooMuch)
        return Refused::size;
    if (code < firstPermanent)
        return Refused::later;
    const bool asksWho = code == 530 || code == 534 || code == 535;
    if (report.step == SmtpStep::identity || asksWho)
        return Refused::identity;
    if (report.step == SmtpStep::sender)
        return Refused::sender;
    return report.step == SmtpStep::recipient ? Refused::recipient : Refused::message;
}

/// The server's own words on one line of bearable length.
QString quoted(const SmtpReply &reply)
{
    constexpr qsizetype bearable = 240;
    QString text = reply.text.simplified();
    text.removeIf([](QChar character) { return !character.isPrint(); });
    if (text.size() > bearable)
        text = text.left(bearable) + u'…';
    return QString::number(reply.code) + u' ' + text;
}

QString refusalText(const SmtpReport &report, const MailboxAccount &account,
                    const QString &recipient)
{
    const QString words = quoted(report.reply);
    const QString &host = account.host;
    switch (refusal(report)) {
    case Refused::later:
        return u"Le serveur « %1 » demande de réessayer plus tard : %2"_s.arg(host, words);
    case Refused::identity: // without the server's words, which might repeat what it was told
        return u"Le serveur « %1 » refuse l’identifiant « %2 » ou son mot de passe.%3"_s.arg(
            host, account.user, passwordAdvice(account.senderAddress));
    case Refused::sender:
        return u"Le serveur « %1 » refuse l’expéditeur « %2 » : %3"_s.arg(
            host, account.senderAddress, words);
    case Refused::recipient:
        return u"Le serveur « %1 » refuse le destinataire « %2 » : %3"_s.arg(host, recipient,
                                                                             words);
    case Refused::size:
        return u"Le message est trop gros pour le serveur « %1 » : %2"_s.arg(host, words);
    case Refused::mailboxFull:
        return u"La boîte de « %1 » est pleine : %2"_s.arg(
            report.step == SmtpStep::sender ? account.senderAddress : recipient, words);
    case Refused::sendingQuota:
        return u"Votre quota d’envoi chez « %1 » est atteint : %2"_s.arg(host, words);
    case Refused::message:
        return u"Le serveur « %1 » refuse le message : %2"_s.arg(host, words);
    }
    return {};
}

QString untrustedText(const std::optional<ServerCertificate> &certificate, const QString &host)
{
    const QString start =
        u"Le certificat du serveur « %1 » n’est pas digne de confiance"_s.arg(host);
    if (!certificate)
        return start + u'.';
    const QString format = u"dd/MM/yyyy"_s;
    return start + u" : il est au nom de « %1 », délivré par « %2 », valable du %3 au %4."_s.arg(
                       certificate->name, certificate->issuer, certificate->from.toString(format),
                       certificate->until.toString(format));
}

QString lostText(const SmtpReport &report, const QString &host)
{
    if (report.endWasGiven)
        return u"La connexion au serveur « %1 » a été coupée avant sa réponse : le message est "
               "peut-être parti."_s.arg(host);
    return u"La connexion au serveur « %1 » a été coupée : le message n’est pas parti."_s.arg(host);
}

QString textOf(const SmtpReport &report, const MailboxAccount &account, const QString &recipient)
{
    const QString &host = account.host;
    switch (report.fault) {
    case SmtpFault::none:
        return {};
    case SmtpFault::unknownHost:
        return u"Le serveur « %1 » est introuvable. Vérifiez son nom et la connexion à Internet."_s
            .arg(host);
    case SmtpFault::unreachable:
        return u"Le serveur « %1 » n’accepte pas de connexion sur le port %2."_s.arg(
            host, QString::number(account.port));
    case SmtpFault::timedOut:
        return report.endWasGiven
                   ? u"Le serveur « %1 » n’a pas répondu à temps : le message est peut-être parti."_s
                         .arg(host)
                   : u"Le serveur « %1 » n’a pas répondu à temps."_s.arg(host);
    case SmtpFault::untrusted:
        return untrustedText(report.certificate, host);
    case SmtpFault::noEncryption:
        return u"Le serveur « %1 » ne chiffre pas la connexion de cette façon sur le port %2."_s
            .arg(host, QString::number(account.port));
    case SmtpFault::noIdentity:
        return u"Le serveur « %1 » n’accepte pas d’identification par mot de passe.%2"_s.arg(
            host, passwordAdvice(account.senderAddress));
    case SmtpFault::refused:
        return refusalText(report, account, recipient);
    case SmtpFault::lost:
        return lostText(report, host);
    }
    return {};
}

} // namespace

TransportFailure failureOf(const SmtpReport &report, const MailboxAccount &account,
                           const QString &recipient)
{
    const bool answered = report.fault == SmtpFault::refused;
    const Fate fate = report.endWasGiven && !answered ? Fate::perhapsSent : Fate::kept;
    return {textOf(report, account, recipient), fate};
}

} // namespace quenoria
