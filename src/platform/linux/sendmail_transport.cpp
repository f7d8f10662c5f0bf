#include "platform/linux/sendmail_transport.h"

#include "platform/linux/fed_program.h"
#include "platform/linux/mail_program.h"
#include "platform/mime/mime_message.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

/// The recipients stand behind "--", so that none is ever taken for an option; "-i" keeps a line
/// of a single full stop from ending the message.
QStringList arguments(const OutgoingMessage &message)
{
    QStringList list{u"-i"_s, u"--"_s};
    for (const QString &recipient : message.recipients)
        list << recipient.trimmed();
    return list;
}

/// A program that was stopped or lost may have passed the message on, once it had all of it.
TransportFailure cutShort(const FedProgram &program, const QString &message)
{
    return {message, program.hasReadAll() ? Fate::perhapsSent : Fate::kept};
}

/// The program's own words are the best account of a failure.
TransportResult resultOf(FedProgram::End end, const FedProgram &program, const QString &name)
{
    using End = FedProgram::End;
    if (end == End::failedToStart)
        return TransportFailure{u"Le programme d’envoi « %1 » n’a pas pu démarrer."_s.arg(name)};
    if (end == End::stopped)
        return cutShort(program,
                        u"Le programme d’envoi « %1 » n’a pas répondu à temps."_s.arg(name));
    if (end == End::byItself && program.exitCode() == 0)
        return {};
    const QString words = program.words();
    const QString message = !words.isEmpty()
                                ? words
                                : u"Le programme d’envoi « %1 » a échoué (code %2)."_s.arg(
                                      name, QString::number(program.exitCode()));
    if (end == End::crashed)
        return cutShort(program, message);
    return TransportFailure{message};
}

} // namespace

SendmailTransport::SendmailTransport(const Clock &clock, const DraftOpener &drafts,
                                     HandOverProgress &progress,
                                     std::chrono::milliseconds inactivityLimit)
    : m_clock(clock), m_drafts(drafts), m_progress(progress), m_inactivityLimit(inactivityLimit)
{
}

TransportResult SendmailTransport::send(const OutgoingMessage &message)
{
    const std::optional<QString> program = mailProgram();
    if (!program)
        return TransportFailure{u"Aucun programme d’envoi n’est configuré."_s};
    auto mime = mimeMessage(message, m_clock);
    if (const auto *failure = std::get_if<TransportFailure>(&mime))
        return *failure;
    // Mail programs read lines as files have them, and end them for the network themselves.
    QByteArray &text = std::get<QByteArray>(mime);
    FedProgram running(*program, arguments(message), text.replace("\r\n", "\n"));
    text.clear(); // it may be large, and is in memory twice
    const FedProgram::End end = running.run(m_inactivityLimit, m_progress);
    m_progress.clear();
    return resultOf(end, running, QFileInfo(*program).fileName());
}

TransportResult SendmailTransport::showDraft(const OutgoingMessage &message)
{
    Composition draft{message.recipients, message.subject, message.content, {}};
    if (!message.attachments.isEmpty())
        draft.file = QUrl::fromLocalFile(message.attachments.constFirst());
    return m_drafts.open(draft);
}

} // namespace quenoria
