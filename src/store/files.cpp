#include "store/prospect_store.h"

#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

bool isPrivate(const QFile &file)
{
    constexpr QFile::Permissions others = QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup |
                                          QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;
    return !(file.permissions() & others);
}

bool shapesMergedList(Collection collection)
{
    return collection == Collection::customProspects || collection == Collection::emailOverrides ||
           collection == Collection::contactOverrides ||
           collection == Collection::deletedProspectIDs;
}

QString failureText(Collection collection, const QString &error)
{
    return QString::fromUtf16(descriptor(collection).saveFailure) + error;
}

} // namespace

QString ProspectStore::file(Collection collection) const
{
    return QDir(m_platform.folders.data())
        .filePath(QString::fromUtf16(descriptor(collection).fileName));
}

void ProspectStore::writeJson(Collection collection, const TakePiece &take) const
{
    switch (collection) {
    case Collection::customProspects:
        return quenoria::writeJson(m_customProspects, take);
    case Collection::statuses:
        return quenoria::writeJson(m_statuses, take);
    case Collection::messageTemplates:
        return quenoria::writeJson(m_messageTemplates, take);
    case Collection::messageAssignments:
        return quenoria::writeJson(m_messageAssignments, take);
    case Collection::emailStatuses:
        return quenoria::writeJson(m_emailStatuses, take);
    case Collection::emailTemplates:
        return quenoria::writeJson(m_emailTemplates, take);
    case Collection::emailAssignments:
        return quenoria::writeJson(m_emailAssignments, take);
    case Collection::emailOverrides:
        return quenoria::writeJson(m_emailOverrides, take);
    case Collection::contactOverrides:
        return quenoria::writeJson(m_contactOverrides, take);
    case Collection::attachmentPaths:
        return quenoria::writeJson(m_attachmentPaths, take);
    case Collection::deletedProspectIDs:
        return quenoria::writeJson(m_deletedProspectIDs, take);
    case Collection::departments:
        return quenoria::writeJson(m_departments, take);
    case Collection::smsMonthlyRecipientsByMonth:
        return quenoria::writeJson(m_smsMonthlyRecipientsByMonth, take);
    }
    Q_UNREACHABLE();
}

Refusal ProspectStore::writeFile(Collection collection) const
{
    if (const Refusal refusal = m_platform.files.makeFolder(m_platform.folders.data()))
        return u"le dossier de données ne peut pas être créé : "_s + *refusal;
    return m_platform.files.writePieces(
        file(collection), [&](const TakePiece &take) { writeJson(collection, take); });
}

bool ProspectStore::isWritten(Collection collection) const
{
    QFile source(file(collection));
    bool same = source.open(QIODevice::ReadOnly | QIODevice::Unbuffered) && isPrivate(source);
    if (!same)
        return false;
    std::string read;
    writeJson(collection, [&](std::string_view piece) {
        read.resize(piece.size());
        same = same && source.read(read.data(), qsizetype(read.size())) == qsizetype(read.size()) &&
               read == piece;
    });
    return same && source.pos() == source.size();
}

void ProspectStore::save(Collection collection)
{
    const Refusal error = writeFile(collection);
    if (!error) {
        if (m_unsaved.erase(collection) != 0)
            Q_EMIT saved();
        return;
    }
    m_unsaved[collection] = failureText(collection, *error);
    m_platform.log.write(m_unsaved[collection]);
    if (!QFileInfo(m_platform.folders.data()).isDir()) {
        for (const CollectionDescriptor &lost : collections) // its file went with the folder
            m_unsaved.emplace(lost.collection, failureText(lost.collection, *error));
    }
    Q_EMIT saveFailed();
}

void ProspectStore::writeBack()
{
    // Compared side by side: a collection and its file are nobody else's.
    std::map<Collection, std::future<bool>> written;
    for (const auto &[collection, name, failure] : collections) {
        if (collection != Collection::customProspects)
            written[collection] = std::async(&ProspectStore::isWritten, this, collection);
    }
    for (auto &[collection, same] : written) {
        if (!same.get())
            save(collection);
    }
}

void ProspectStore::publish(Collection collection, const QString &contactId)
{
    if (shapesMergedList(collection))
        m_mergedIsCurrent = false;
    Q_EMIT published(collection, contactId);
    if (m_isReady)
        save(collection);
}

} // namespace quenoria
