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

QString encoded(const QString &text, const QByteArray &kept = {})
{
    return QString::fromLatin1(QUrl::toPercentEncoding(text, kept));
}

/// All but the file, encoded: xdg-email hands the texts of its options through a shell that reads
/// backslashes in them.
QString draftLink(const Composition &draft)
{
    QStringList addresses;
    for (const QString &recipient : draft.recipients)
        addresses << encoded(recipient.trimmed(), "@");
    QStringList items;
    if (!draft.subject.isEmpty())
        items << u"subject="_s + encoded(draft.subject);
    if (!draft.body.isEmpty())
        items << u"body="_s + encoded(QString(draft.body).replace(u"\n"_s, u"\r\n"_s));
    const QString link = u"mailto:"_s + addresses.join(u',');
    return items.isEmpty() ? link : link + u'?' + items.join(u'&');
}

TransportResult openWithXdgEmail(const Composition &draft)
{
    QStringList arguments;
    if (const QString file = draft.file.toLocalFile(); !file.isEmpty()) {
        if (file.contains(u'\\'))
            return TransportFailure{
                u"Le nom du fichier joint « %1 » contient « \\ » : il ne peut pas "
                "être transmis à l’application de messagerie."_s.arg(file)};
        arguments << u"--attach"_s << file;
    }
    // It may stay as long as the mail application that it starts: nobody waits for it.
    if (!QProcess::startDetached(xdgEmail(), arguments << draftLink(draft)))
        return TransportFailure{u"L’application de messagerie n’a pas pu être ouverte."_s};
    return {};
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
    if (portal.isPresent()) {
        TransportResult result = portal.compose(draft);
        // What the portal refuses, a long subject for instance, may still open the other way; what
        // may be open already must not open twice.
        if (!result || result->fate == Fate::perhapsSent || xdgEmail().isEmpty())
            return result;
    }
    return openWithXdgEmail(draft);
}

} // namespace quenoria
