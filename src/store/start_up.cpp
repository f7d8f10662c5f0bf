#include "store/defaults.h"
#include "store/prospect_store.h"

#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

const QString testNumberKey = u"OlvakSMSManualTestNumber"_s;

} // namespace

ProspectStore::ProspectStore(const Platform &platform, QObject *parent)
    : QObject(parent), m_platform(platform), m_testNumber(defaultTestNumber()),
      m_prospects(loadProspects(platform.resources))
{
    loadFiles();
    m_testNumber = m_platform.preferences.text(testNumberKey).value_or(m_testNumber);
    completeTemplates();
    completeDepartments();
    seedStatus();
    if (m_smsMonthlyRecipientsByMonth.empty())
        mergeExistingSMSHistoryIntoMonthlyRecipients();
    m_isReady = true;
    for (const CollectionDescriptor &entry : collections) {
        if (entry.collection != Collection::customProspects)
            writeBack(entry.collection);
    }
}

ProspectStore::~ProspectStore() = default;

void ProspectStore::setTestNumber(const QString &phone)
{
    m_testNumber = phone;
    Q_EMIT testNumberPublished();
    if (m_isReady)
        m_platform.preferences.setText(testNumberKey, phone);
}

void ProspectStore::loadFiles()
{
    load(Collection::customProspects, m_customProspects);
    load(Collection::statuses, m_statuses);
    if (!load(Collection::messageTemplates, m_messageTemplates) || m_messageTemplates.empty())
        m_messageTemplates = {defaultMessage()};
    load(Collection::messageAssignments, m_messageAssignments);
    load(Collection::emailStatuses, m_emailStatuses);
    if (!load(Collection::emailTemplates, m_emailTemplates) || m_emailTemplates.empty())
        m_emailTemplates = {defaultEmailTemplate()};
    load(Collection::emailAssignments, m_emailAssignments);
    load(Collection::emailOverrides, m_emailOverrides);
    load(Collection::contactOverrides, m_contactOverrides);
    load(Collection::attachmentPaths, m_attachmentPaths);
    load(Collection::deletedProspectIDs, m_deletedProspectIDs);
    if (!load(Collection::departments, m_departments) || m_departments.empty())
        m_departments = Sequence<DepartmentInfo>(defaultDepartments());
    load(Collection::smsMonthlyRecipientsByMonth, m_smsMonthlyRecipientsByMonth);
}

template <typename Shape>
bool ProspectStore::load(Collection collection, Shape &into)
{
    QFile source(file(collection));
    if (!source.exists())
        return false;
    if (source.open(QIODevice::ReadOnly)) {
        if (auto decoded = decodeCollection<Shape>(source.readAll())) {
            into = std::move(*decoded);
            return true;
        }
    }
    setAside(source.fileName());
    return false;
}

void ProspectStore::setAside(const QString &path)
{
    const QFileInfo info(path);
    const QString stamp =
        QString::fromLatin1(instantText(m_platform.clock.now())).replace(u':', u'-');
    const QString stem = u"%1/%2.illisible-%3"_s.arg(info.path(), info.completeBaseName(), stamp);
    QString aside = u"%1.%2"_s.arg(stem, info.suffix());
    for (int copy = 2; QFileInfo::exists(aside); ++copy) // a renaming never replaces a file
        aside = u"%1-%2.%3"_s.arg(stem).arg(copy).arg(info.suffix());
    if (QFile::rename(path, aside))
        m_platform.log.write(
            u"Fichier illisible mis de côté : %1, conservé sous %2"_s.arg(info.fileName(), aside));
    else
        m_platform.log.write(u"Fichier illisible, impossible à mettre de côté : %1"_s.arg(path));
}

void ProspectStore::completeTemplates()
{
    const auto isDefault = [](const MessageTemplate &message) {
        return message.id == defaultMessageID;
    };
    if (const MessageTemplate *stored = m_messageTemplates.find(isDefault)) {
        MessageTemplate migrated = *stored;
        if (migrated.title == legacyMessageTitle())
            migrated.title = defaultMessage().title;
        if (migrated.body.contains(legacyBusinessName()))
            migrated.body = defaultMessage().body;
        m_messageTemplates.replaceFirst(isDefault, migrated);
    } else {
        m_messageTemplates.prepend(defaultMessage());
    }

    const auto isDefaultEmail = [](const EmailTemplate &email) {
        return email.id == defaultEmailTemplateID;
    };
    if (!m_emailTemplates.find(isDefaultEmail))
        m_emailTemplates.prepend(defaultEmailTemplate());
}

void ProspectStore::completeDepartments()
{
    IdSet known;
    m_departments.forEach(
        [&known](const DepartmentInfo &department) { known.insert(department.code); });
    const auto complete = [this, &known](const Prospect &prospect) {
        const QString &code = prospect.department;
        if (code.isEmpty() || !known.insert(code).second)
            return;
        const auto legacy = legacyDepartmentNames.find(code);
        m_departments.append({code, legacy != legacyDepartmentNames.end()
                                        ? legacy->second
                                        : u"Département "_s + code});
    };
    std::ranges::for_each(m_prospects, complete);
    m_customProspects.forEach(complete);
}

void ProspectStore::seedStatus()
{
    if (m_statuses.contains(seededContactID()))
        return;
    SendStatus status;
    status.sent = true;
    status.sentAt = seededSendDate().value_or(m_platform.clock.now());
    m_statuses.set(seededContactID(), status);
}

} // namespace quenoria
