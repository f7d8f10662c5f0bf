#include "store/prospect_store.h"

namespace quenoria {

bool ProspectStore::isSelectedForSending(const Prospect &prospect) const
{
    return m_sendSelection.contains(prospect.id);
}

void ProspectStore::setSelectedForSending(bool selected, const Prospect &prospect)
{
    if (selected && (isStopped(prospect) || prospect.phone.isEmpty()))
        return;
    select(m_sendSelection, selected, prospect.id);
}

void ProspectStore::clearSendSelection()
{
    m_sendSelection.clear();
    Q_EMIT selectionPublished({});
}

bool ProspectStore::isSelectedForEmailSending(const Prospect &prospect) const
{
    return m_emailSendSelection.contains(prospect.id);
}

void ProspectStore::setSelectedForEmailSending(bool selected, const Prospect &prospect)
{
    if (selected && (isStopped(prospect) || prospect.email.value_or(QString()).isEmpty()))
        return;
    select(m_emailSendSelection, selected, prospect.id);
}

void ProspectStore::clearEmailSendSelection()
{
    m_emailSendSelection.clear();
    Q_EMIT selectionPublished({});
}

void ProspectStore::select(IdSet &selection, bool selected, const QString &id)
{
    if (selected)
        selection.insert(id);
    else
        selection.erase(id);
    Q_EMIT selectionPublished(id);
}

} // namespace quenoria
