#include "store/defaults.h"
#include "store/prospect_store.h"
#include "store/set_aside.h"
#include "store/store_state.h"

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
    : QObject(parent), m_state(std::make_unique<StoreState>(*this, platform))
{
    m_state->gathered.emplace(); // what differs from its file
    m_state->loadFiles();
    m_state->testNumber = platform.preferences.text(testNumberKey).value_or(m_state->testNumber);
    m_state->migrateDefaultMessage();
    m_state->completeTemplates();
    m_state->completeDepartments();
    m_state->seedStatus();
    if (m_state->smsMonthlyRecipientsByMonth.empty())
        m_state->mergeExistingSMSHistoryIntoMonthlyRecipients();
    const auto differing = *std::exchange(m_state->gathered, std::nullopt);
    m_state->isReady = true;
    for (const auto &[collection, ids] : differing.collections) {
        if (descriptor(collection).startUpWrites)
            save(collection);
    }
}

ProspectStore::~ProspectStore() = default;

StoreState::StoreState(ProspectStore &owner, const Platform &services)
    : store(owner), platform(services), doNotContact(services), testNumber(defaultTestNumber()),
      prospects(ProspectStore::loadProspects(services.resources)),
      filesSetAside(doNotContact.filesSetAside())
{
}

void ProspectStore::setTestNumber(const QString &phone)
{
    m_state->testNumber = phone;
    m_state->announce(TestNumberChanged{});
    if (m_state->isReady)
        m_state->platform.preferences.setText(testNumberKey, phone);
}

void StoreState::loadFiles()
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
        files.push_back(std::async(decodeInTurn, std::cref(row), store.file(row.collection)));
    // All before the first is set aside: memory may not suffice for one of them.
    std::vector<std::optional<DecodedFile>> contents;
    contents.reserve(files.size());
    for (auto &decoding : files)
        contents.push_back(decoding.get());
    for (const CollectionDescriptor &row : collections()) {
        const std::optional<DecodedFile> &decoded = contents[std::size_t(row.collection)];
        if (decoded)
            decoded->adopt(*this);
        else if (const QString path = store.file(row.collection); QFile::exists(path))
            filesSetAside << setAside(platform, path);
        if (!decoded || !decoded->isAsWritten)
            publish(row.collection);
    }
    if (departments.empty()) {
        departments = Sequence<DepartmentInfo>(defaultDepartments());
        publish(Collection::departments);
    }
}

/// The default message of an earlier edition becomes today's.
void StoreState::migrateDefaultMessage()
{
    auto &messages = channels.of<Channel::sms>().templates;
    const auto isDefault = [](const MessageTemplate &message) {
        return message.id == ProspectStore::defaultMessageID;
    };
    const MessageTemplate *stored = messages.find(isDefault);
    if (!stored)
        return;
    MessageTemplate migrated = *stored;
    if (migrated.title == legacyMessageTitle())
        migrated.title = defaultMessage().title;
    for (const QString &invented : legacyBusinessNames()) {
        if (migrated.body.contains(invented))
            migrated.body = defaultMessage().body;
    }
    if (migrated == *stored)
        return;
    messages.replaceFirst(isDefault, migrated);
    publish(Collection::messageTemplates);
}

void StoreState::completeDepartments()
{
    IdSet known;
    departments.forEach(
        [&known](const DepartmentInfo &department) { known.insert(department.code); });
    const auto complete = [this, &known](const Prospect &prospect) {
        const QString &code = prospect.department;
        if (code.isEmpty() || !known.insert(code).second)
            return;
        const auto legacy = ProspectStore::legacyDepartmentNames.find(code);
        departments.append({code, legacy != ProspectStore::legacyDepartmentNames.end()
                                      ? legacy->second
                                      : u"Département "_s + code});
        publish(Collection::departments);
    };
    std::ranges::for_each(prospects, complete);
    customProspects.forEach(complete);
}

void StoreState::seedStatus()
{
    auto &statuses = channels.of<Channel::sms>().statuses;
    if (statuses.contains(seededContactID()))
        return;
    SendStatus status;
    status.sent = true;
    status.sentAt = seededSendDate().value_or(platform.clock.now());
    statuses.set(seededContactID(), status);
    publish(Collection::statuses, {seededContactID()});
}

} // namespace quenoria
