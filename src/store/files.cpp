#include "platform/system_reason.h"
#include "store/prospect_store.h"
#include "store/store_state.h"
#include "store/together.h"

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
    return QDir(m_state.contacts().platform.folders.data())
        .filePath(QString::fromUtf16(descriptor(collection).fileName));
}

Refusal StoreState::writeFile(Collection collection) const
{
    try {
        if (const Refusal refusal = platform.files.makeFolder(platform.folders.data()))
            return u"le dossier de données ne peut pas être créé : "_s + *refusal;
        return platform.files.writePieces(store.file(collection), [&](const TakePiece &take) {
            descriptor(collection).write(*this, take);
        });
    } catch (const std::bad_alloc &) {
        return systemReason(ENOMEM);
    }
}

void ProspectStore::save(Collection collection)
{
    const Refusal error = m_state->writeFile(collection);
    if (!error) {
        m_state->doNotContact.writeOwed(); // of the same disk
        if (m_state->unsaved.erase(collection) != 0)
            Q_EMIT saved();
        return;
    }
    m_state->unsaved[collection] = failureText(collection, *error);
    m_state->platform.log.write(m_state->unsaved[collection]);
    if (!QFileInfo(m_state->platform.folders.data()).isDir()) {
        for (const CollectionDescriptor &lost : collections()) // its file went with the folder
            m_state->unsaved.emplace(lost.collection, failureText(lost.collection, *error));
    }
    Q_EMIT saveFailed();
}

void StoreState::publish(Collection collection, IdSet ids)
{
    const CollectionDescriptor &row = descriptor(collection);
    if (row.shapesList)
        mergedIsCurrent = false;
    if (gathered) {
        gathered->collections[collection].merge(ids);
        return;
    }
    whenThereIsMemory(&store, [this, &row, ids = std::move(ids)] {
        Q_EMIT store.published(row.change(row.collection, ids));
    });
    if (isReady)
        store.save(collection);
}

void StoreState::announce(Change change)
{
    whenThereIsMemory(&store,
                      [this, change = std::move(change)] { Q_EMIT store.published(change); });
}

void StoreState::announceSelection(Channel channel, IdSet ids)
{
    if (gathered)
        gathered->selections[channel].merge(ids);
    else
        announce(SelectionChanged{channel, std::move(ids)});
}

Together::Together(ProspectStore &store) : m_state(*store.m_state), m_isOutermost(!m_state.gathered)
{
    if (m_isOutermost)
        m_state.gathered.emplace();
}

Together::~Together()
{
    if (!m_isOutermost)
        return;
    auto gathered = *std::exchange(m_state.gathered, std::nullopt);
    for (auto &[channel, ids] : gathered.selections)
        m_state.announceSelection(channel, std::move(ids));
    for (auto &[collection, ids] : gathered.collections)
        m_state.publish(collection, std::move(ids));
}

} // namespace quenoria
