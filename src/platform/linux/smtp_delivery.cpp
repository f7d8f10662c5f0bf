#include "platform/linux/smtp_delivery.h"

#include "platform/linux/mail_connection.h"

#include <QUrl>

#include <array>
#include <cstring>
#include <memory>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

struct EndList {
    void operator()(curl_slist *list) const { curl_slist_free_all(list); }
};
using List = std::unique_ptr<curl_slist, EndList>;

struct Command {
    QByteArrayView start;
    SmtpStep step;
};

constexpr std::array commands{
    Command{"EHLO ", SmtpStep::hello},         Command{"HELO ", SmtpStep::hello},
    Command{"STARTTLS", SmtpStep::encryption}, Command{"AUTH ", SmtpStep::identity},
    Command{"MAIL FROM:", SmtpStep::sender},   Command{"RCPT TO:", SmtpStep::recipient},
    Command{"DATA\r\n", SmtpStep::text},
};

constexpr int firstRefusal = 400;

/// Follows a dialogue from within: what was asked last, what was answered, what was read of the
/// message. Commands are looked at and forgotten, since one of them holds the password.
class Dialogue {
public:
    Dialogue(const QByteArray &text, const SmtpConditions &conditions)
        : m_text(text), m_progress(conditions.progress), m_watch(conditions.limit)
    {
    }
    ~Dialogue()
    {
        if (m_progress)
            m_progress->clear();
    }
    Q_DISABLE_COPY_MOVE(Dialogue)

    StallWatch &watch() { return m_watch; }

    void said(QByteArrayView command)
    {
        if (command.startsWith("QUIT")) {
            m_over = true;
            m_watch.hangUp(); // nothing depends on the answer
            return;
        }
        for (const Command &known : commands) {
            if (command.startsWith(known.start))
                begin(known.step);
        }
    }

    /// One line of an answer; the last one has a space behind its code.
    void heard(QByteArrayView line)
    {
        constexpr qsizetype codeLength = 3;
        bool isCode = false;
        const int code = line.first(std::min(codeLength, line.size())).toInt(&isCode);
        if (m_over || !isCode || line.size() <= codeLength)
            return;
        if (!m_continues)
            m_reply = {};
        m_reply.text += QString::fromUtf8(line.sliced(codeLength + 1)).trimmed() + u' ';
        m_continues = line[codeLength] == '-';
        if (!m_continues)
            m_reply.code = code;
    }

    /// The next piece of the message. With the last one the final full stop is about to be said,
    /// and a size that is known is not always asked for more.
    std::size_t read(char *buffer, std::size_t room)
    {
        const std::size_t size = std::min(room, std::size_t(m_text.size()) - m_position);
        std::memcpy(buffer, m_text.constData() + m_position, size);
        m_position += size;
        if (m_progress)
            m_progress->set(qint64(m_position), m_text.size());
        if (m_position == std::size_t(m_text.size()) && m_step != SmtpStep::answer)
            begin(SmtpStep::answer);
        return size;
    }

    SmtpReport report(CURLcode result) const
    {
        return {fault(result), m_step, m_reply, {}, m_step == SmtpStep::answer};
    }

private:
    void begin(SmtpStep step)
    {
        m_step = step;
        m_reply = {};
        m_continues = false;
    }

    SmtpFault fault(CURLcode result) const
    {
        if (m_step == SmtpStep::answer && m_reply.code > 0 && m_reply.code < firstRefusal)
            return SmtpFault::none;
        if (m_reply.code >= firstRefusal)
            return SmtpFault::refused;
        if (const auto fault = connectionFault(result, m_watch))
            return *fault;
        if (result == CURLE_LOGIN_DENIED)
            return SmtpFault::noIdentity;
        return result == CURLE_OK ? SmtpFault::none : SmtpFault::lost; // its word on the whole
    }

    const QByteArray &m_text;
    HandOverProgress *const m_progress;
    std::size_t m_position = 0;
    SmtpStep m_step = SmtpStep::greeting;
    SmtpReply m_reply; ///< to the step; its code is 0 until the last line
    bool m_continues = false;
    bool m_over = false;
    StallWatch m_watch;
};

int follow(CURL *, curl_infotype kind, char *data, std::size_t size, void *dialogue)
{
    auto *self = static_cast<Dialogue *>(dialogue);
    if (kind == CURLINFO_TEXT)
        return 0;
    self->watch().progress();
    if (kind == CURLINFO_HEADER_OUT)
        self->said({data, qsizetype(size)});
    else if (kind == CURLINFO_HEADER_IN)
        self->heard({data, qsizetype(size)});
    return 0;
}

std::size_t giveText(char *buffer, std::size_t size, std::size_t count, void *dialogue)
{
    return static_cast<Dialogue *>(dialogue)->read(buffer, size * count);
}

std::size_t ignore(char *, std::size_t size, std::size_t count, void *) { return size * count; }

/// The name under which this computer presents itself is no one's business.
QByteArray address(const MailboxAccount &account)
{
    QUrl url;
    url.setScheme(account.security == SmtpSecurity::implicitTls ? u"smtps"_s : u"smtp"_s);
    url.setHost(account.host);
    url.setPort(account.port);
    url.setPath(u"/[127.0.0.1]"_s);
    return url.host().isEmpty() ? QByteArray() : url.toEncoded();
}

void setServer(CURL *handle, const MailboxAccount &account, const QString &password)
{
    curl_easy_setopt(handle, CURLOPT_URL, address(account).constData());
    curl_easy_setopt(handle, CURLOPT_PROTOCOLS_STR, "smtp,smtps");
    if (!account.user.isEmpty())
        identify(handle, account.user, password);
}

void setDialogue(CURL *handle, Dialogue &dialogue)
{
    curl_easy_setopt(handle, CURLOPT_FORBID_REUSE, 1L);
    curl_easy_setopt(handle, CURLOPT_VERBOSE, 1L); // makes it call the next one
    curl_easy_setopt(handle, CURLOPT_DEBUGFUNCTION, follow);
    curl_easy_setopt(handle, CURLOPT_DEBUGDATA, &dialogue);
    curl_easy_setopt(handle, CURLOPT_WRITEFUNCTION, ignore);
    curl_easy_setopt(handle, CURLOPT_READFUNCTION, giveText);
    curl_easy_setopt(handle, CURLOPT_READDATA, &dialogue);
}

List setMessage(CURL *handle, const SmtpMessage &message)
{
    List recipients;
    for (const QByteArray &recipient : message.recipients)
        recipients.reset(curl_slist_append(recipients.release(), recipient.constData()));
    curl_easy_setopt(handle, CURLOPT_MAIL_FROM, message.sender.constData());
    curl_easy_setopt(handle, CURLOPT_MAIL_RCPT, recipients.get());
    curl_easy_setopt(handle, CURLOPT_UPLOAD, 1L);
    curl_easy_setopt(handle, CURLOPT_INFILESIZE_LARGE, curl_off_t(message.text.size()));
    return recipients;
}

} // namespace

SmtpReport deliver(const SmtpMessage &message, const MailboxAccount &account,
                   const QString &password, const SmtpConditions &conditions)
{
    Dialogue dialogue(message.text, conditions);
    const MailConnection handle = makeConnection(dialogue.watch(), conditions);
    setServer(handle.get(), account, password);
    setDialogue(handle.get(), dialogue);
    const List recipients = setMessage(handle.get(), message);
    const CURLcode result = curl_easy_perform(handle.get());
    SmtpReport report = dialogue.report(result);
    if (report.fault == SmtpFault::untrusted)
        report.certificate = shownCertificate(handle.get());
    return report;
}

} // namespace quenoria
