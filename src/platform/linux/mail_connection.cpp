#include "platform/linux/mail_connection.h"

#include <sys/socket.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

void initialiseOnce()
{
    [[maybe_unused]] static const CURLcode done = curl_global_init(CURL_GLOBAL_DEFAULT);
}

curl_socket_t openSocket(void *watch, curlsocktype, curl_sockaddr *address)
{
    const int socket =
        ::socket(address->family, address->socktype | SOCK_CLOEXEC, address->protocol);
    if (socket >= 0)
        static_cast<StallWatch *>(watch)->watch(socket);
    return socket;
}

int closeSocket(void *watch, curl_socket_t socket)
{
    static_cast<StallWatch *>(watch)->letGo(socket);
    return ::close(socket);
}

/// The part of a distinguished name that a person knows: its common name, else its organisation.
///
///   "C = FR, O = Exemple, CN = smtp.example.fr" -> "smtp.example.fr"
QString commonName(const QString &name)
{
    for (const QString &kind : {u"CN"_s, u"O"_s}) {
        for (const QString &part : name.split(u',')) {
            if (part.section(u'=', 0, 0).trimmed() == kind)
                return part.section(u'=', 1).trimmed();
        }
    }
    return name;
}

} // namespace

MailConnection makeConnection(StallWatch &watch, const SmtpConditions &conditions)
{
    initialiseOnce();
    MailConnection connection(curl_easy_init());
    CURL *handle = connection.get();
    curl_easy_setopt(handle, CURLOPT_PROXY, "");
    curl_easy_setopt(handle, CURLOPT_USE_SSL, long(CURLUSESSL_ALL));
    curl_easy_setopt(handle, CURLOPT_SSLVERSION, long(CURL_SSLVERSION_TLSv1_2));
    curl_easy_setopt(handle, CURLOPT_NOSIGNAL, 1L);
    curl_easy_setopt(handle, CURLOPT_CONNECTTIMEOUT_MS, long(conditions.limit.count()));
    curl_easy_setopt(handle, CURLOPT_CERTINFO, 1L);
    if (!conditions.authorities.isEmpty())
        curl_easy_setopt(handle, CURLOPT_CAINFO, conditions.authorities.constData());
    curl_easy_setopt(handle, CURLOPT_OPENSOCKETFUNCTION, openSocket);
    curl_easy_setopt(handle, CURLOPT_OPENSOCKETDATA, &watch);
    curl_easy_setopt(handle, CURLOPT_CLOSESOCKETFUNCTION, closeSocket);
    curl_easy_setopt(handle, CURLOPT_CLOSESOCKETDATA, &watch);
    return connection;
}

void identify(CURL *handle, const QString &user, const QString &password)
{
    curl_easy_setopt(handle, CURLOPT_USERNAME, user.toUtf8().constData());
    curl_easy_setopt(handle, CURLOPT_PASSWORD, password.toUtf8().constData());
    curl_easy_setopt(handle, CURLOPT_LOGIN_OPTIONS, "AUTH=PLAIN;AUTH=LOGIN");
}

std::optional<SmtpFault> connectionFault(CURLcode result, const StallWatch &watch)
{
    if (watch.hasExpired())
        return SmtpFault::timedOut;
    switch (result) {
    case CURLE_URL_MALFORMAT:
    case CURLE_COULDNT_RESOLVE_HOST:
        return SmtpFault::unknownHost;
    case CURLE_COULDNT_CONNECT:
        return SmtpFault::unreachable;
    case CURLE_OPERATION_TIMEDOUT:
        return SmtpFault::timedOut;
    case CURLE_PEER_FAILED_VERIFICATION:
        return SmtpFault::untrusted;
    case CURLE_USE_SSL_FAILED:
    case CURLE_SSL_CONNECT_ERROR:
        return SmtpFault::noEncryption;
    default:
        return {};
    }
}

std::optional<ServerCertificate> shownCertificate(CURL *handle)
{
    curl_certinfo *chain = nullptr;
    if (curl_easy_getinfo(handle, CURLINFO_CERTINFO, &chain) != CURLE_OK || !chain ||
        chain->num_of_certs == 0)
        return {};
    ServerCertificate certificate;
    for (const curl_slist *line = chain->certinfo[0]; line; line = line->next) {
        const QString text = QString::fromUtf8(line->data);
        const QString value = text.section(u':', 1);
        const auto date = [&] { return QDate::fromString(value.left(10), Qt::ISODate); };
        const auto tells = [&](QStringView what) {
            return text.startsWith(what, Qt::CaseInsensitive); // the libraries differ in it
        };
        if (tells(u"Subject:"))
            certificate.name = commonName(value);
        else if (tells(u"Issuer:"))
            certificate.issuer = commonName(value);
        else if (tells(u"Start date:"))
            certificate.from = date();
        else if (tells(u"Expire date:"))
            certificate.until = date();
    }
    return certificate;
}

} // namespace quenoria
