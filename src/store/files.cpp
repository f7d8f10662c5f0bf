#include "platform/system_reason.h"
#include "store/prospect_store.h"

#include <QDir>
#include <QFileInfo>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

QString failureText(Collection collection, const QString &error)
{
    return QString::fromUtf16(descriptor(collection).saveFailure) + error;
}

/// Those who show a change may find no memory for it: it is made all the same, and they are told
/// again.
template <typename Tell>
void whenThereIsMemory(ProspectStore *store, Tell tell)
{
    constexpr std::chrono::seconds wait{1};
    try {
        tell();
    } catch (const std::bad_alloc &) {
        QTimer::singleShot(wait, store,
                           [store, tell = std::move(tell)] { whenThereIsMemory(store, tell); });
    }
}

} // namespace

QString ProspectStore::file(Collection collection) const
{
    return QDir(m_platform.folders.data())
        .filePath(QString::fromUtf16(descriptor(collection).fileName));
}

void ProspectStore::writeJson(Collection collection, const TakePiece &take) const
{
    descriptor(collection).write(*this, take);
}

Refusal ProspectStore::writeFile(Collection collection) const
{
    try {
        if (const Refusal refusal = m_platform.files.makeFolder(m_platform.folders.data()))
            return u"le dossier de données ne peut pas être créé : "_s + *refusal;
        return m_platform.files.writePieces(
            file(collection), [&](const TakePiece &take) { writeJson(collection, take); });
    } catch (const std::bad_alloc &) {
        return systemReason(ENOMEM);
    }
}

void ProspectStore::save(Collection collection)
{
    const Refusal error = writeFile(collection);
    if (!error) {
        m_doNotContact.writeOwed(); // of the same disk
        if (m_unsaved.erase(collection) != 0)
            Q_EMIT saved();
        return;
    }
    m_unsaved[collection] = failureText(collection, *error);
    m_platform.log.write(m_unsaved[collection]);
    if (!QFileInfo(m_platform.folders.data()).isDir()) {
        for (const CollectionDescriptor &lost : collections()) // its file went with the folder
            m_unsaved.emplace(lost.collection, failureText(lost.collection, *error));
    }
    Q_EMIT saveFailed();
}

void ProspectStore::publish(Collection collection, IdSet ids)
{
    const CollectionDescriptor &row = descriptor(collection);
    if (row.shapesList)
        m_mergedIsCurrent = false;
    if (m_gathered) {
        m_gathered->collections[collection].merge(ids);
        return;
    }
    whenThereIsMemory(this, [this, &row, ids = std::move(ids)] {
        Q_EMIT published(row.change(row.collection, ids));
    });
    if (m_isReady)
        save(collection);
}

void ProspectStore::announce(Change change)
{
    whenThereIsMemory(this, [this, change = std::move(change)] { Q_EMIT published(change); });
}

void ProspectStore::announceSelection(Channel channel, IdSet ids)
{
    if (m_gathered)
        m_gathered->selections[channel].merge(ids);
    else
        announce(SelectionChanged{channel, std::move(ids)});
}

Together::Together(ProspectStore &store) : m_store(store), m_isOutermost(!store.m_gathered)
{
    if (m_isOutermost)
        m_store.m_gathered.emplace();
}

Together::~Together()
{
    if (!m_isOutermost)
        return;
    auto gathered = *std::exchange(m_store.m_gathered, std::nullopt);
    for (auto &[channel, ids] : gathered.selections)
        m_store.announceSelection(channel, std::move(ids));
    for (auto &[collection, ids] : gathered.collections)
        m_store.publish(collection, std::move(ids));
}

} // namespace quenoria
