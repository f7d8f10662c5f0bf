#include "platform/mail_settings.h"

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

const QString roadKey = u"EnvoiEmailMoyen"_s;
const QString mailboxRoad = u"boite"_s;
const QString mailProgramRoad = u"sendmail"_s;

const QString hostKey = u"BoiteServeur"_s;
const QString portKey = u"BoitePort"_s;
const QString securityKey = u"BoiteSecurite"_s;
const QString implicitTls = u"tls"_s;
const QString startTls = u"starttls"_s;
const QString userKey = u"BoiteIdentifiant"_s;
const QString nameKey = u"BoiteNom"_s;
const QString addressKey = u"BoiteAdresse"_s;
const QString replyKey = u"BoiteReponse"_s;
const QString copiesKey = u"BoiteCopies"_s;
const QString imapHostKey = u"BoiteImapServeur"_s;
const QString imapPortKey = u"BoiteImapPort"_s;
const QString yes = u"oui"_s;
const QString no = u"non"_s;
const QString perMinuteKey = u"BoiteParMinute"_s;
const QString perDayKey = u"BoiteParJour"_s;

constexpr int lastPort = 65535;

} // namespace

bool MailboxAccount::isComplete() const
{
    return !host.isEmpty() && !senderAddress.isEmpty() && port > 0 && port <= lastPort;
}

MailRoad MailSettings::road() const
{
    return text(roadKey) == mailboxRoad ? MailRoad::mailbox : MailRoad::mailProgram;
}

MailboxAccount MailSettings::account() const
{
    const bool implicit = text(securityKey) == implicitTls;
    return {text(hostKey),
            number(portKey, MailboxAccount().port),
            implicit ? SmtpSecurity::implicitTls : SmtpSecurity::startTls,
            text(userKey),
            text(nameKey),
            text(addressKey),
            text(replyKey),
            text(copiesKey) == yes,
            text(imapHostKey),
            number(imapPortKey, MailboxAccount().imapPort)};
}

MailPace MailSettings::pace() const
{
    return {number(perMinuteKey, MailPace().perMinute), number(perDayKey, MailPace().perDay)};
}

void MailSettings::setRoad(MailRoad road)
{
    m_preferences.setText(roadKey, road == MailRoad::mailbox ? mailboxRoad : mailProgramRoad);
}

void MailSettings::setAccount(const MailboxAccount &account)
{
    const bool implicit = account.security == SmtpSecurity::implicitTls;
    const std::pair<QString, QString> values[] = {
        {hostKey, account.host},
        {portKey, QString::number(account.port)},
        {securityKey, implicit ? implicitTls : startTls},
        {userKey, account.user},
        {nameKey, account.senderName},
        {addressKey, account.senderAddress},
        {replyKey, account.replyTo},
        {copiesKey, account.keepsCopies ? yes : no},
        {imapHostKey, account.imapHost},
        {imapPortKey, QString::number(account.imapPort)},
    };
    for (const auto &[key, value] : values)
        m_preferences.setText(key, value);
}

void MailSettings::setPace(MailPace pace)
{
    m_preferences.setText(perMinuteKey, QString::number(pace.perMinute));
    m_preferences.setText(perDayKey, QString::number(pace.perDay));
}

QString MailSettings::text(const QString &key) const
{
    return m_preferences.text(key).value_or(QString());
}

int MailSettings::number(const QString &key, int whenAbsent) const
{
    const int value = text(key).toInt();
    return value > 0 ? value : whenAbsent;
}

} // namespace quenoria
