#include "platform/linux/sendmail_transport.h"

#include "platform/linux/mail_program.h"
#include "platform/mime/mime_message.h"

#include <QFileInfo>
#include <QProcess>

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

/// Runs the program to its end; its own words are the best account of a failure.
TransportResult run(QProcess &process, const QByteArray &input, std::chrono::milliseconds limit)
{
    const QString name = QFileInfo(process.program()).fileName();
    process.setStandardOutputFile(QProcess::nullDevice());
    process.start();
    process.write(input);
    process.closeWriteChannel();
    const bool ended = process.waitForFinished(int(limit.count()));
    if (process.error() == QProcess::FailedToStart)
        return TransportFailure{u"Le programme d’envoi « %1 » n’a pas pu démarrer."_s.arg(name)};
    if (!ended) {
        process.kill();
        process.waitForFinished();
        return TransportFailure{
            u"Le programme d’envoi « %1 » n’a pas répondu à temps."_s.arg(name)};
    }
    if (process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0)
        return {};
    const QString words = QString::fromLocal8Bit(process.readAllStandardError()).trimmed();
    if (!words.isEmpty())
        return TransportFailure{words};
    return TransportFailure{
        u"Le programme d’envoi « %1 » a échoué (code %2)."_s.arg(name).arg(process.exitCode())};
}

} // namespace

SendmailTransport::SendmailTransport(const Clock &clock, const DraftOpener &drafts,
                                     std::chrono::milliseconds limit)
    : m_clock(clock), m_drafts(drafts), m_limit(limit)
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
    QProcess process;
    process.setProgram(*program);
    process.setArguments(arguments(message));
    // Mail programs read lines as files have them, and end them for the network themselves.
    QByteArray &text = std::get<QByteArray>(mime);
    return run(process, text.replace("\r\n", "\n"), m_limit);
}

TransportResult SendmailTransport::showDraft(const OutgoingMessage &message)
{
    Composition draft{message.recipients, message.subject, message.content, {}};
    if (!message.attachments.isEmpty())
        draft.file = QUrl::fromLocalFile(message.attachments.constFirst());
    return m_drafts.open(draft);
}

} // namespace quenoria
