#include "store/prospect_store.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

/// The folder holds other people's numbers: nobody but the user looks inside.
bool makePrivateFolder(const QString &path)
{
    if (QFileInfo(path).isDir())
        return true;
    QDir().mkpath(QFileInfo(path).path());
    return QDir().mkdir(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

/// The file has that content already, and nobody else may read it.
bool holds(const QString &path, const QByteArray &content)
{
    constexpr QFile::Permissions others = QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup |
                                          QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;
    QFile file(path);
    return file.open(QIODevice::ReadOnly) && file.size() == content.size() &&
           !(file.permissions() & others) && file.readAll() == content;
}

bool shapesMergedList(Collection collection)
{
    return collection == Collection::customProspects || collection == Collection::emailOverrides ||
           collection == Collection::contactOverrides ||
           collection == Collection::deletedProspectIDs;
}

} // namespace

QString ProspectStore::file(Collection collection) const
{
    return QDir(m_platform.folders.data())
        .filePath(QString::fromUtf16(descriptor(collection).fileName));
}

QByteArray ProspectStore::json(Collection collection) const
{
    switch (collection) {
    case Collection::customProspects:
        return m_customProspects.json();
    case Collection::statuses:
        return m_statuses.json();
    case Collection::messageTemplates:
        return m_messageTemplates.json();
    case Collection::messageAssignments:
        return m_messageAssignments.json();
    case Collection::emailStatuses:
        return m_emailStatuses.json();
    case Collection::emailTemplates:
        return m_emailTemplates.json();
    case Collection::emailAssignments:
        return m_emailAssignments.json();
    case Collection::emailOverrides:
        return m_emailOverrides.json();
    case Collection::contactOverrides:
        return m_contactOverrides.json();
    case Collection::attachmentPaths:
        return m_attachmentPaths.json();
    case Collection::deletedProspectIDs:
        return encodeJson(m_deletedProspectIDs);
    case Collection::departments:
        return m_departments.json();
    case Collection::smsMonthlyRecipientsByMonth:
        return m_smsMonthlyRecipientsByMonth.json();
    }
    Q_UNREACHABLE();
}

Refusal ProspectStore::writeFile(const QString &path, const QByteArray &content) const
{
    const QString folder = QFileInfo(path).path();
    if (!makePrivateFolder(folder))
        return u"le dossier « %1 » ne peut pas être créé"_s.arg(folder);
    QSaveFile target(path);
    if (!target.open(QIODevice::WriteOnly) ||
        !target.setPermissions(QFile::ReadOwner | QFile::WriteOwner) ||
        target.write(content) != content.size() || !target.commit())
        return target.errorString();
    return {};
}

void ProspectStore::save(Collection collection)
{
    if (const Refusal error = writeFile(file(collection), json(collection)))
        m_platform.log.write(QString::fromUtf16(descriptor(collection).saveFailure) + *error);
}

void ProspectStore::writeBack(Collection collection)
{
    if (!holds(file(collection), json(collection)))
        save(collection);
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
