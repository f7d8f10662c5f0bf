#include "platform/linux/sent_folder.h"

#include "platform/linux/mail_connection.h"
#include "platform/linux/smtp_words.h"

#include <QRegularExpression>
#include <QUrl>

#include <cstring>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

constexpr int startTlsPort = 143;

/// The names that servers give it without marking it, without the folder that it lies in.
const QStringList usualNames{u"sent"_s,
                             u"sent messages"_s,
                             u"sent items"_s,
                             u"sent mail"_s,
                             u"envoy&aok-s"_s,
                             u"messages envoy&aok-s"_s,
                             u"&amk-l&aok-ments envoy&aok-s"_s,
                             u"outbox"_s};

/// What one dialogue with the server has told and taken.
struct Exchange {
    const QByteArray &text;
    StallWatch watch;
    std::size_t position = 0;
    QByteArray list;
    QString refusal; ///< the server's words
};

std::size_t giveText(char *buffer, std::size_t size, std::size_t count, void *exchange)
{
    auto *self = static_cast<Exchange *>(exchange);
    const std::size_t left = std::size_t(self->text.size()) - self->position;
    const std::size_t given = std::min(size * count, left);
    std::memcpy(buffer, self->text.constData() + self->position, given);
    self->position += given;
    self->watch.progress();
    return given;
}

std::size_t takeList(char *data, std::size_t size, std::size_t count, void *exchange)
{
    constexpr qsizetype most = 1'000'000;
    const std::size_t length = size * count;
    auto *self = static_cast<Exchange *>(exchange);
    if (self->list.size() < most)
        self->list.append(data, qsizetype(length));
    return length;
}

/// Lines of the dialogue: "A004 NO [OVERQUOTA] Pleine".
std::size_t hear(char *data, std::size_t size, std::size_t count, void *exchange)
{
    static const QRegularExpression refusal(u"^[A-Z]\\d+ (?:NO|BAD) (.*)"_s);
    const std::size_t length = size * count;
    auto *self = static_cast<Exchange *>(exchange);
    self->watch.progress();
    const auto found = refusal.match(QString::fromUtf8(data, qsizetype(length)).simplified());
    if (found.hasMatch())
        self->refusal = found.captured(1);
    return length;
}

QByteArray address(const MailboxAccount &account, const QByteArray &folder)
{
    QUrl url;
    url.setScheme(account.imapPort == startTlsPort ? u"imap"_s : u"imaps"_s);
    url.setHost(account.imapHost);
    url.setPort(account.imapPort);
    return url.host().isEmpty() ? QByteArray() : url.toEncoded() + '/' + folder.toPercentEncoding();
}

SmtpFault faultOf(CURLcode result, const Exchange &exchange)
{
    if (const auto fault = connectionFault(result, exchange.watch))
        return *fault;
    if (result == CURLE_OK)
        return SmtpFault::none;
    return exchange.refusal.isEmpty() ? SmtpFault::lost : SmtpFault::refused;
}

/// What the user reads: of a server that cannot be spoken to the same as when it sends.
std::optional<QString> problem(CURL *handle, CURLcode result, const Exchange &exchange,
                               const MailboxAccount &account)
{
    MailboxAccount server = account;
    server.host = account.imapHost;
    server.port = account.imapPort;
    SmtpReport report;
    report.fault = faultOf(result, exchange);
    if (report.fault == SmtpFault::none)
        return {};
    if (result == CURLE_LOGIN_DENIED)
        return u"Le serveur « %1 » refuse l’identifiant « %2 » ou son mot de passe."_s.arg(
            server.host, account.user);
    if (report.fault == SmtpFault::refused)
        return u"Le serveur « %1 » a refusé : %2"_s.arg(server.host, exchange.refusal.left(240));
    if (report.fault == SmtpFault::lost)
        return u"La connexion au serveur « %1 » a été coupée."_s.arg(server.host);
    if (report.fault == SmtpFault::untrusted)
        report.certificate = shownCertificate(handle);
    return failureOf(report, server, {}).message;
}

void prepare(CURL *handle, Exchange &exchange)
{
    curl_easy_setopt(handle, CURLOPT_PROTOCOLS_STR, "imap,imaps");
    curl_easy_setopt(handle, CURLOPT_HEADERFUNCTION, hear);
    curl_easy_setopt(handle, CURLOPT_HEADERDATA, &exchange);
    curl_easy_setopt(handle, CURLOPT_WRITEFUNCTION, takeList);
    curl_easy_setopt(handle, CURLOPT_WRITEDATA, &exchange);
    curl_easy_setopt(handle, CURLOPT_READFUNCTION, giveText);
    curl_easy_setopt(handle, CURLOPT_READDATA, &exchange);
}

CURLcode askForFolders(CURL *handle, const MailboxAccount &account)
{
    curl_easy_setopt(handle, CURLOPT_URL, address(account, {}).constData());
    curl_easy_setopt(handle, CURLOPT_CUSTOMREQUEST, "LIST \"\" \"*\"");
    return curl_easy_perform(handle);
}

CURLcode append(CURL *handle, const MailboxAccount &account, const QByteArray &folder,
                qsizetype size)
{
    curl_easy_setopt(handle, CURLOPT_CUSTOMREQUEST, nullptr);
    curl_easy_setopt(handle, CURLOPT_URL, address(account, folder).constData());
    curl_easy_setopt(handle, CURLOPT_UPLOAD, 1L);
    curl_easy_setopt(handle, CURLOPT_INFILESIZE_LARGE, curl_off_t(size));
    return curl_easy_perform(handle);
}

} // namespace

std::optional<QByteArray> sentFolder(const QByteArray &list)
{
    static const QRegularExpression line(
        uR"re(^\* LIST \(([^)]*)\) (?:NIL|"(.*?)") (?:"(.*)"|(\S+))\s*$)re"_s);
    std::optional<QByteArray> usual;
    for (const QByteArray &each : list.split('\n')) {
        const auto found = line.match(QString::fromLatin1(each));
        if (!found.hasMatch())
            continue;
        QString name = found.captured(3) + found.captured(4);
        name.replace(u"\\\""_s, u"\""_s).replace(u"\\\\"_s, u"\\"_s);
        const QString separator = found.captured(2);
        const QString own = separator.isEmpty() ? name : name.section(separator, -1);
        if (found.captured(1).contains(u"\\Sent"_s, Qt::CaseInsensitive))
            return name.toLatin1();
        if (!usual && usualNames.contains(own.toLower()))
            usual = name.toLatin1();
    }
    return usual;
}

std::optional<QString> keepCopy(const QByteArray &text, const MailboxAccount &account,
                                const QString &password, const SmtpConditions &conditions)
{
    Exchange exchange{text, StallWatch(conditions.limit), 0, {}, {}};
    const MailConnection connection = makeConnection(exchange.watch, conditions);
    CURL *handle = connection.get();
    prepare(handle, exchange);
    identify(handle, account.user, password);
    CURLcode result = askForFolders(handle, account);
    const std::optional<QByteArray> folder = sentFolder(exchange.list);
    if (result == CURLE_OK && folder)
        result = append(handle, account, *folder, text.size());
    std::optional<QString> why = problem(handle, result, exchange, account);
    if (!why && !folder)
        why = u"La boîte n’a pas de dossier « Envoyés »."_s;
    exchange.watch.hangUp(); // nothing depends on the farewell
    return why;
}

} // namespace quenoria
