#include "model/large_area.h"
#include "store/defaults.h"
#include "store/prospect_store.h"
#include "store/set_aside.h"
#include "store/store_state.h"

#include <QFile>
#include <QScopeGuard>

#include <algorithm>
#include <atomic>
#include <future>
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

template <typename Test>
std::vector<const CollectionDescriptor *> rowsThat(const Test &test)
{
    std::vector<const CollectionDescriptor *> rows;
    for (const CollectionDescriptor &row : collections()) {
        if (test(row))
            rows.push_back(&row);
    }
    return rows;
}

std::optional<DecodedFile> decodeFile(const CollectionDescriptor &row, const QString &path)
{
    QFile source(path);
    if (!source.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return std::nullopt;
    QByteArray bytes;
    bytes.reserve(source.size() + jsonReadAhead);
    expectFilling(bytes);
    bytes.resize(source.size());
    bytes.resize(std::max(source.read(bytes.data(), bytes.size()), qint64(0)));
    std::optional<DecodedFile> decoded = row.decode(bytes);
    if (decoded)
        decoded->isAsWritten = decoded->isAsWritten && isPrivate(source);
    return decoded;
}

} // namespace

ProspectStore::ProspectStore(const Platform &platform, FirstReading first)
    : m_state(std::make_unique<StoreState>(*this, platform))
{
    StoreState &state = m_state.contacts();
    state.gathered.emplace(); // what differs from its file
    if (first == FirstReading::contacts)
        state.readContacts();
    else
        complete();
}

ProspectStore::~ProspectStore() = default;

void ProspectStore::complete() { (void)*m_state; }

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

void StoreState::readContacts()
{
    loadFiles(rowsThat([](const CollectionDescriptor &row) { return !row.isHistory; }));
    completeContacts();
}

void StoreState::readHistories()
{
    isReading = true;
    const auto end = qScopeGuard([this] { isReading = false; });
    const bool contactsAreShown = contactsAreRead;
    loadFiles(rowsThat([contactsAreShown](const CollectionDescriptor &row) {
        return row.isHistory || !contactsAreShown;
    }));
    if (!contactsAreShown)
        completeContacts();
    seedStatus();
    if (smsMonthlyRecipientsByMonth.empty())
        mergeExistingSMSHistoryIntoMonthlyRecipients();
    const auto differing = *std::exchange(gathered, std::nullopt);
    isReady = true;
    for (const auto &[collection, ids] : differing.collections) {
        if (descriptor(collection).startUpWrites)
            store.save(collection);
    }
    if (contactsAreShown) // later: whoever asked may be about to paint
        QMetaObject::invokeMethod(
            &store, [this] { announce(ListReshaped{}); }, Qt::QueuedConnection);
}

void StoreState::completeContacts()
{
    if (departments.empty()) {
        departments = Sequence<DepartmentInfo>(defaultDepartments());
        publish(Collection::departments);
    }
    testNumber = platform.preferences.text(testNumberKey).value_or(testNumber);
    migrateDefaultMessage();
    completeTemplates();
    completeDepartments();
    contactsAreRead = true;
}

/// Histories grow for years: the files are decoded and compared side by side, but no more of them
/// than is quicker, since each is in memory twice meanwhile.
void StoreState::loadFiles(const std::vector<const CollectionDescriptor *> &rows)
{
    std::vector<std::optional<DecodedFile>> contents(rows.size());
    std::atomic<std::size_t> begun = 0;
    const auto decodeFrom = [&](std::size_t row) {
        for (; row < rows.size(); row = begun++)
            contents[row] = decodeFile(*rows[row], store.file(rows[row]->collection));
    };
    {
        const std::size_t hands =
            std::min<std::size_t>(std::thread::hardware_concurrency(), rows.size());
        const std::size_t first = begun++; // the largest: no other thread's memory grows as quickly
        std::vector<std::future<void>> others; // which work here where there can be no thread
        for (std::size_t hand = 1; hand < hands; ++hand)
            others.push_back(std::async(decodeFrom, begun++));
        decodeFrom(first);
        for (std::future<void> &other : others)
            other.get();
    }
    // All before the first is set aside: memory may not suffice for one of them.
    for (std::size_t row = 0; row < rows.size(); ++row)
        adopt(*rows[row], contents[row]);
}

void StoreState::adopt(const CollectionDescriptor &row, const std::optional<DecodedFile> &decoded)
{
    if (decoded)
        decoded->adopt(*this);
    else if (const QString path = store.file(row.collection); QFile::exists(path))
        filesSetAside << setAside(platform, path);
    if (!decoded || !decoded->isAsWritten)
        publish(row.collection);
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
