#include "platform/linux/draft_opener.h"

#include "platform/linux/applications.h"
#include "platform/linux/email_portal.h"

#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

QString xdgEmail() { return QStandardPaths::findExecutable(u"xdg-email"_s); }

/// The link that names the recipients: some applications overlook those of xdg-email's "--to".
QString recipientsLink(const QStringList &recipients)
{
    QStringList addresses;
    for (const QString &recipient : recipients)
        addresses << QString::fromLatin1(QUrl::toPercentEncoding(recipient.trimmed(), "@"));
    return u"mailto:"_s + addresses.join(u',');
}

/// Every value is an argument of its own behind its option: none can be taken for another.
QStringList xdgEmailArguments(const Composition &draft)
{
    QStringList list{u"--utf8"_s};
    if (!draft.subject.isEmpty())
        list << u"--subject"_s << draft.subject;
    if (!draft.body.isEmpty())
        list << u"--body"_s << draft.body;
    if (draft.file.isLocalFile())
        list << u"--attach"_s << draft.file.toLocalFile();
    list << recipientsLink(draft.recipients);
    return list;
}

} // namespace

bool DraftOpener::isAvailable() const
{
    return applicationFor(u"mailto"_s) && (EmailPortal(m_bus).isPresent() || !xdgEmail().isEmpty());
}

TransportResult DraftOpener::open(const Composition &draft) const
{
    if (!applicationFor(u"mailto"_s))
        return TransportFailure{u"Aucune application de messagerie n’est installée."_s};
    const QString file = draft.file.toLocalFile();
    if (!file.isEmpty() && !QFileInfo(file).isReadable())
        return TransportFailure{u"Le fichier joint « %1 » ne peut pas être lu."_s.arg(file)};
    const EmailPortal portal(m_bus);
    if (portal.isPresent())
        return portal.compose(draft);
    // It may stay as long as the mail application that it starts: nobody waits for it.
    if (!QProcess::startDetached(xdgEmail(), xdgEmailArguments(draft)))
        return TransportFailure{u"L’application de messagerie n’a pas pu être ouverte."_s};
    return {};
}

} // namespace quenoria
