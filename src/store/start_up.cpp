#include "store/defaults.h"
#include "store/prospect_store.h"
#include "store/set_aside.h"

#include <QFile>
#include <QScopeGuard>

#include <algorithm>
#include <future>
#include <semaphore>
#include <thread>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

const QString testNumberKey = u"OlvakSMSManualTestNumber"_s;

bool isPrivate(const QFile &file)
{
    constexpr QFile::Permissions others = QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup |
                                          QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;
    return !(file.permissions() & others);
}

std::optional<DecodedFile> decodeFile(const CollectionDescriptor &row, const QString &path)
{
    QFile source(path);
    if (!source.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return std::nullopt;
    QByteArray bytes;
    bytes.reserve(source.size() + jsonReadAhead);
    bytes.resize(source.size());
    bytes.resize(std::max(source.read(bytes.data(), bytes.size()), qint64(0)));
    std::optional<DecodedFile> decoded = row.decode(bytes);
    if (decoded)
        decoded->isAsWritten = decoded->isAsWritten && isPrivate(source);
    return decoded;
}

} // namespace

ProspectStore::ProspectStore(const Platform &platform, QObject *parent)
    : QObject(parent), m_platform(platform), m_doNotContact(platform),
      m_testNumber(defaultTestNumber()), m_prospects(loadProspects(platform.resources))
{
    m_filesSetAside = m_doNotContact.filesSetAside();
    m_gathered.emplace(); // what differs from its file
    loadFiles();
    m_testNumber = m_platform.preferences.text(testNumberKey).value_or(m_testNumber);
    completeTemplates();
    completeDepartments();
    seedStatus();
    if (m_smsMonthlyRecipientsByMonth.empty())
        mergeExistingSMSHistoryIntoMonthlyRecipients();
    const auto differing = *std::exchange(m_gathered, std::nullopt);
    m_isReady = true;
    for (const auto &[collection, ids] : differing.collections) {
        if (descriptor(collection).startUpWrites)
            save(collection);
    }
}

ProspectStore::~ProspectStore() = default;

void ProspectStore::setTestNumber(const QString &phone)
{
    m_testNumber = phone;
    announce(TestNumberChanged{});
    if (m_isReady)
        m_platform.preferences.setText(testNumberKey, phone);
}

void ProspectStore::loadFiles()
{
    // Histories grow for years: the files are decoded and compared side by side, but no more of
    // them than is quicker, since each is in memory twice meanwhile.
    std::counting_semaphore<> cores(std::max(1U, std::thread::hardware_concurrency()));
    const auto decodeInTurn = [&cores](const CollectionDescriptor &row, const QString &path) {
        cores.acquire();
        const auto leave = qScopeGuard([&cores] { cores.release(); });
        return decodeFile(row, path);
    };
    std::vector<std::future<std::optional<DecodedFile>>> files;
    for (const CollectionDescriptor &row : collections())
        files.push_back(std::async(decodeInTurn, std::cref(row), file(row.collection)));
    // All before the first is set aside: memory may not suffice for one of them.
    std::vector<std::optional<DecodedFile>> contents;
    contents.reserve(files.size());
    for (auto &decoding : files)
        contents.push_back(decoding.get());
    for (const CollectionDescriptor &row : collections()) {
        const std::optional<DecodedFile> &decoded = contents[std::size_t(row.collection)];
        if (decoded)
            decoded->adopt(*this);
        else if (const QString path = file(row.collection); QFile::exists(path))
            m_filesSetAside << setAside(m_platform, path);
        if (!decoded || !decoded->isAsWritten)
            publish(row.collection);
    }
    replaceIfEmpty(Collection::messageTemplates, m_messageTemplates, {defaultMessage()});
    replaceIfEmpty(Collection::emailTemplates, m_emailTemplates, {defaultEmailTemplate()});
    replaceIfEmpty(Collection::departments, m_departments,
                   Sequence<DepartmentInfo>(defaultDepartments()));
}

template <typename Record>
void ProspectStore::replaceIfEmpty(Collection collection, Sequence<Record> &records,
                                   Sequence<Record> defaults)
{
    if (!records.empty())
        return;
    records = std::move(defaults);
    publish(collection);
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
        for (const QString &invented : legacyBusinessNames()) {
            if (migrated.body.contains(invented))
                migrated.body = defaultMessage().body;
        }
        if (migrated != *stored) {
            m_messageTemplates.replaceFirst(isDefault, migrated);
            publish(Collection::messageTemplates);
        }
    } else {
        m_messageTemplates.prepend(defaultMessage());
        publish(Collection::messageTemplates);
    }

    const auto isDefaultEmail = [](const EmailTemplate &email) {
        return email.id == defaultEmailTemplateID;
    };
    if (!m_emailTemplates.find(isDefaultEmail)) {
        m_emailTemplates.prepend(defaultEmailTemplate());
        publish(Collection::emailTemplates);
    }
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
        publish(Collection::departments);
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
    publish(Collection::statuses, {seededContactID()});
}

} // namespace quenoria
