#include "platform/mail_providers.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

enum class Login { address, partBeforeAt };

struct Provider {
    QStringView domains; ///< each between spaces
    QStringView host;
    int port;
    QStringView imapHost;
    Login login = Login::address;
    QStringView advice = {}; ///< where a password for other programs is made
};

constexpr int startTlsPort = 587;
constexpr int implicitTlsPort = 465;

constexpr std::array providers{
    Provider{u" gmail.com googlemail.com ", u"smtp.gmail.com", startTlsPort, u"imap.gmail.com",
             Login::address,
             u"Ce fournisseur demande un « mot de passe d’application » : compte Google, "
             "Sécurité, validation en deux étapes, Mots de passe des applications."},
    Provider{u" outlook.com outlook.fr hotmail.com hotmail.fr live.com live.fr msn.com ",
             u"smtp-mail.outlook.com", startTlsPort, u"outlook.office365.com", Login::address,
             u"Ce fournisseur n’accepte plus que la connexion par son propre site (OAuth) pour la "
             "plupart des comptes ; là où il l’accepte encore, il demande un « mot de passe "
             "d’application » : compte Microsoft, Sécurité, Options de sécurité avancées."},
    Provider{u" yahoo.fr yahoo.com ymail.com ", u"smtp.mail.yahoo.com", implicitTlsPort,
             u"imap.mail.yahoo.com", Login::address,
             u"Ce fournisseur demande un « mot de passe d’application » : compte Yahoo, Sécurité, "
             "Générer un mot de passe d’application."},
    Provider{u" icloud.com me.com mac.com ", u"smtp.mail.me.com", startTlsPort, u"imap.mail.me.com",
             Login::address,
             u"Ce fournisseur demande un « mot de passe pour application » : compte Apple, "
             "Connexion et sécurité, Mots de passe pour application."},
    Provider{u" orange.fr wanadoo.fr ", u"smtp.orange.fr", implicitTlsPort, u"imap.orange.fr"},
    Provider{u" free.fr ", u"smtp.free.fr", implicitTlsPort, u"imap.free.fr", Login::partBeforeAt},
    Provider{u" sfr.fr neuf.fr 9online.fr cegetel.net club-internet.fr ", u"smtp.sfr.fr",
             implicitTlsPort, u"imap.sfr.fr"},
    Provider{u" bbox.fr ", u"smtp.bbox.fr", startTlsPort, u"imap.bbox.fr"},
    Provider{u" laposte.net ", u"smtp.laposte.net", implicitTlsPort, u"imap.laposte.net",
             Login::partBeforeAt},
    Provider{u" gmx.fr gmx.com gmx.net ", u"mail.gmx.com", startTlsPort, u"imap.gmx.com"},
    Provider{u" aol.com aol.fr ", u"smtp.aol.com", implicitTlsPort, u"imap.aol.com", Login::address,
             u"Ce fournisseur demande un « mot de passe d’application » : compte AOL, Sécurité, "
             "Générer un mot de passe d’application."},
    Provider{u" zoho.com zohomail.eu ", u"smtp.zoho.eu", implicitTlsPort, u"imap.zoho.eu"},
    Provider{
        u" fastmail.com fastmail.fm ", u"smtp.fastmail.com", implicitTlsPort, u"imap.fastmail.com",
        Login::address,
        u"Ce fournisseur demande un « mot de passe d’application » : Réglages, Confidentialité "
        "et sécurité, Gérer les mots de passe d’application."},
};

const Provider *providerOf(const QString &address)
{
    const QString domain = u' ' + address.section(u'@', -1).trimmed().toLower() + u' ';
    const auto found = std::ranges::find_if(
        providers, [&](const Provider &provider) { return provider.domains.contains(domain); });
    return found == providers.end() || !address.contains(u'@') ? nullptr : &*found;
}

} // namespace

std::optional<MailboxAccount> providerSettings(const QString &address)
{
    const Provider *provider = providerOf(address);
    if (!provider)
        return {};
    const QString plain = address.trimmed();
    MailboxAccount account;
    account.host = provider->host.toString();
    account.port = provider->port;
    account.security =
        provider->port == implicitTlsPort ? SmtpSecurity::implicitTls : SmtpSecurity::startTls;
    account.user = provider->login == Login::address ? plain : plain.section(u'@', 0, -2);
    account.senderAddress = plain;
    account.imapHost = provider->imapHost.toString();
    return account;
}

QString passwordAdvice(const QString &address)
{
    const Provider *provider = providerOf(address);
    return provider && !provider->advice.isEmpty() ? u' ' + provider->advice.toString() : QString();
}

} // namespace quenoria
