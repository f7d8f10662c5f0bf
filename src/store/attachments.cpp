#include "store/prospect_store.h"
#include "store/store_state.h"

#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace quenoria {

std::optional<QString> ProspectStore::attachmentName(const Prospect &prospect) const
{
    const QString *path = m_state.contacts().attachmentPaths.find(prospect.id);
    if (!path || path->isEmpty())
        return std::nullopt;
    return QFileInfo(QDir::cleanPath(*path)).fileName();
}

bool ProspectStore::attachmentExists(const Prospect &prospect) const
{
    const QString *path = m_state.contacts().attachmentPaths.find(prospect.id);
    return path && !path->isEmpty() && QFileInfo::exists(*path);
}

std::optional<QUrl> ProspectStore::attachmentURL(const Prospect &prospect) const
{
    if (!attachmentExists(prospect))
        return std::nullopt;
    return QUrl::fromLocalFile(*m_state.contacts().attachmentPaths.find(prospect.id));
}

void ProspectStore::chooseAttachment(const Prospect &prospect)
{
    const QString id =
        prospect.id; // the panel runs an event loop: the contact may change meanwhile
    const auto path = m_state->platform.panels.chooseFile(
        {u"Choisir un fichier joint"_s,
         u"Ce fichier sera proposé avec les SMS/MMS ou e-mails de ce contact."_s,
         u"Choisir"_s,
         {}});
    if (!path)
        return;
    m_state->attachmentPaths.set(id, *path);
    m_state->publish(Collection::attachmentPaths, {id});
}

QString ProspectStore::attachmentPath(const Prospect &prospect) const
{
    const QString *path = m_state.contacts().attachmentPaths.find(prospect.id);
    return path ? *path : QString();
}

void ProspectStore::setAttachment(const QString &path, const Prospect &prospect)
{
    if (path.isEmpty())
        return removeAttachment(prospect);
    const QString id = prospect.id;
    m_state->attachmentPaths.set(id, path);
    m_state->publish(Collection::attachmentPaths, {id});
}

void ProspectStore::removeAttachment(const Prospect &prospect)
{
    const QString id = prospect.id;
    m_state->attachmentPaths.remove(id);
    m_state->publish(Collection::attachmentPaths, {id});
}

} // namespace quenoria
