#pragma once

#include "model/channel.h"
#include "model/id_set.h"
#include "model/records.h"
#include "store/change.h"
#include "store/held_state.h"
#include "store/refusal.h"
#include "store/send_outcome.h"

#include <QObject>

#include <functional>
#include <map>
#include <span>
#include <stop_token>

class QUrl;

namespace QCoro {
template <typename Result>
class Task;
}

namespace quenoria {

class DoNotContact;
class Resources;
class TextSet;
class Together;
struct HandOver;
struct ImportedChanges;
struct ImportReport;
struct ManyContacts;
struct Platform;
struct ProspectImportAnalysis;
template <typename Value>
class Dictionary;
template <typename Value>
class Sequence;

/// Called with a complete message right before it goes to its carrier; a refusal keeps it back.
using HandOverGate = std::function<Refusal(const HandOver &)>;

/// What a start reads before the store can be looked at.
enum class FirstReading { all, contacts };

/// The application's one model object: contacts, templates, tracking and quota, with their files.
///
/// Every change is published and, once the store is ready, its file is rewritten at once. A write
/// that fails costs a log line; memory keeps the change. Confined to the main thread.
class ProspectStore : public QObject {
    Q_OBJECT

public:
    static constexpr int standardSMSMonthlyRecipientLimit = 250;
    static constexpr std::chrono::nanoseconds automaticSMSMinimumInterval =
        std::chrono::seconds{11};
    static const QString defaultMessageID;
    static const QString defaultEmailTemplateID;
    static const std::map<QString, QString> legacyDepartmentNames; ///< code → name

    /// Loads, completes and migrates the files, then writes each one back. Never fails but for
    /// want of memory: a file that cannot be decoded is renamed aside and its collection starts
    /// anew.
    ///
    /// A start that reads the contacts first can show them soon. The rest happens at complete(), or
    /// once anything is asked for or done that needs the histories; isReady() tells, and a change
    /// of the list is published afterwards.
    explicit ProspectStore(const Platform &platform, FirstReading first = FirstReading::all);
    ~ProspectStore() override;

    /// Reads what the start has left for later, if anything. Throws std::bad_alloc, and can then be
    /// called again.
    void complete();

    // The collections, as published.
    const Dictionary<SendStatus> &statuses() const;
    const Sequence<Prospect> &customProspects() const;
    const Sequence<MessageTemplate> &messageTemplates() const;
    const Dictionary<QString> &messageAssignments() const;
    const Dictionary<EmailSendStatus> &emailStatuses() const;
    const Sequence<EmailTemplate> &emailTemplates() const;
    const Dictionary<QString> &emailAssignments() const;
    const Dictionary<QString> &emailOverrides() const;
    const Dictionary<ContactOverride> &contactOverrides() const;
    const Dictionary<QString> &attachmentPaths() const;
    const IdSet &deletedProspectIDs() const;
    const Sequence<DepartmentInfo> &departments() const;
    const QString &testNumber() const;
    void setTestNumber(const QString &phone);
    const IdSet &sendSelection() const;
    const IdSet &emailSendSelection() const;
    const IdSet &selection(Channel channel) const;
    bool holds(Collection collection, const QString &id) const; ///< an entry of that contact
    const std::vector<Prospect> &prospects() const;             ///< built-in list
    bool isReady() const;
    const Dictionary<TextSet> &smsMonthlyRecipientsByMonth() const;
    std::optional<Instant> lastAutomaticSMSSentAt() const;
    bool automaticSMSBusy() const;
    /// How long the next automatic SMS has to wait at least; zero when it may go now.
    std::chrono::nanoseconds automaticSMSWait() const;

    // The merged contact list: built-in and custom contacts, as edited, without the deleted ones.
    // Recomputed after a change; references live until the next one.
    const std::vector<Prospect> &allProspects() const;
    const Prospect *prospect(const QString &id) const; ///< first with the id, or null
    static std::vector<Prospect> loadProspects(const Resources &resources);

    // Contacts. Every check and its message stand beside the operation.
    [[nodiscard]] Refusal add(const QString &name, const QString &phone, const QString &email,
                              const QString &department, const QString &profession);
    struct ContactEdit {
        QString name, commune, phone, email, department, profession; ///< as typed
        bool operator==(const ContactEdit &) const = default;
    };
    [[nodiscard]] Refusal update(const Prospect &prospect, const ContactEdit &edit);
    int deleteProspects(const IdSet &ids); ///< how many contacts went

    /// Gives each contact of an older folder that shares its id an id of its own, with a copy of
    /// what is kept about it; how many got one. Nothing changes as long as that copy cannot be
    /// written. Contacts that shared an id are never both served while they share a recipient.
    int separateTwins();

    // Departments.
    std::vector<DepartmentInfo> sortedDepartments() const;
    QString departmentName(const QString &code) const;
    [[nodiscard]] Refusal addDepartment(const QString &code, const QString &name);

    // Send tracking. Dates are only appended, or the newest replaced by a manual one.
    const SendStatus *status(const Prospect &prospect) const;
    const EmailSendStatus *emailStatus(const Prospect &prospect) const;
    bool isStopped(const Prospect &prospect) const;
    std::vector<Instant> sendHistory(const Prospect &prospect) const; ///< oldest first
    void setSent(bool sent, const Prospect &prospect);
    std::vector<Instant> emailHistory(const Prospect &prospect) const; ///< oldest first
    void recordSentNow(const Prospect &prospect);
    void recordSent(const Prospect &prospect, Instant date); ///< a send of an earlier moment
    void recordSMSRecipientUsage(const Prospect &prospect, Instant date); ///< in that month's quota
    /// Has a number, an address, and no twin that gets its messages.
    bool isReachable(Channel channel, const Prospect &prospect) const;
    /// An earlier contact that once shared its id has the same number, the same address.
    bool isServedByTwin(Channel channel, const Prospect &prospect) const;
    bool isMarkedSent(Channel channel, const Prospect &prospect) const;
    void setDate(Instant date, const Prospect &prospect);
    void setStopped(bool stopped, const Prospect &prospect);
    void setComment(const QString &comment, const Prospect &prospect);
    void setEmailSent(bool sent, const Prospect &prospect);
    void recordEmailSentNow(const Prospect &prospect);
    void recordEmailSent(const Prospect &prospect, Instant date);
    std::optional<Instant> lastContact(const Prospect &prospect) const; ///< newest of all channels

    // The same on any channel.
    std::span<const Instant> sends(Channel channel, const Prospect &prospect) const; ///< in place
    using TakeSends = std::function<void(const QString &id, std::span<const Instant> sends)>;
    void forEachRecord(Channel channel, const TakeSends &take) const;
    void markSent(Channel channel, bool sent, const Prospect &prospect);
    void recordSentNow(Channel channel, const Prospect &prospect);
    void recordSent(Channel channel, const Prospect &prospect, Instant date);

    // Numbers and addresses that are no contacts and must not become such that get messages.
    const DoNotContact &doNotContact() const;
    [[nodiscard]] Refusal addToDoNotContact(const IdSet &keys);
    /// Keeps hashes of these, by which a later import leaves them out.
    [[nodiscard]] Refusal rememberErased(const IdSet &keys);

    // A selection for each channel, in memory only: contacts ticked for the next run.
    bool isSelected(Channel channel, const Prospect &prospect) const;
    void select(Channel channel, bool selected, const Prospect &prospect);
    bool isSelectedForSending(const Prospect &prospect) const;
    void setSelectedForSending(bool selected, const Prospect &prospect);
    void clearSendSelection();
    bool isSelectedForEmailSending(const Prospect &prospect) const;
    void setSelectedForEmailSending(bool selected, const Prospect &prospect);
    void clearEmailSendSelection();

    // The same of many contacts, whatever their number: one change and one write of each file.
    // Contacts that are as they should be already are passed over.
    ManyContacts setSelected(Channel channel, bool selected, const IdSet &ids);
    ManyContacts setSent(Channel channel, bool sent, const IdSet &ids);
    ManyContacts setStopped(bool stopped, const IdSet &ids);

    // The monthly quota, counted in distinct recipients of the local calendar month.
    static QString recipientKey(const Prospect &prospect); ///< by which a month counts it once
    int smsRecipientsSentThisMonth() const;
    int remainingStandardSMSRecipientsThisMonth() const;
    [[nodiscard]] Refusal smsQuotaError(const Prospect &prospect, bool freeProEnabled) const;

    // Templates. A contact without an assignment uses its channel's default template.
    std::vector<EmailTemplate> templates(Channel channel) const;
    EmailTemplate assignedTemplate(Channel channel, const Prospect &prospect) const;
    void assignTemplate(Channel channel, const QString &id, const Prospect &prospect);
    QString createTemplate(Channel channel, EmailTemplate texts); ///< the new id
    void updateTemplate(Channel channel, const EmailTemplate &texts);
    void deleteTemplate(Channel channel, const QString &templateId);
    QString assignedMessageID(const Prospect &prospect) const;
    MessageTemplate assignedMessage(const Prospect &prospect) const;
    void assignMessage(const QString &id, const Prospect &prospect);
    QString createMessage(const QString &title, const QString &body); ///< the new id
    void updateMessage(const QString &id, const QString &title, const QString &body);
    void deleteMessage(const QString &templateId);
    QString assignedEmailTemplateID(const Prospect &prospect) const;
    EmailTemplate assignedEmailTemplate(const Prospect &prospect) const;
    void assignEmailTemplate(const QString &id, const Prospect &prospect);
    QString createEmailTemplate(const QString &title, const QString &subject, const QString &body);
    void updateEmailTemplate(const QString &id, const QString &title, const QString &subject,
                             const QString &body);
    void deleteEmailTemplate(const QString &templateId);

    // Attachments: one path per contact; the file itself stays where it is.
    std::optional<QString> attachmentName(const Prospect &prospect) const;
    bool attachmentExists(const Prospect &prospect) const;
    std::optional<QUrl> attachmentURL(const Prospect &prospect) const;
    void chooseAttachment(const Prospect &prospect);
    void removeAttachment(const Prospect &prospect);
    QString attachmentPath(const Prospect &prospect) const;            ///< empty without one
    void setAttachment(const QString &path, const Prospect &prospect); ///< empty: none

    // Import: analyses a workbook and merges it. Throws what its reading threw, unchanged. The
    // two halves stand apart, so that a window can analyse a large workbook on another thread.
    ImportReport importProspects(const QString &workbookPath);
    IdSet duplicateKeys() const; ///< one key per contact of the merged list
    /// Throws OutOfMemory; what it had taken in by then stays, and a repeat adds the rest.
    ImportReport merge(ProspectImportAnalysis analysis);
    void undoImport(const ImportedChanges &changes); ///< see ImportUndo, which knows when it may be

    // Messaging. Nothing here records a send: the caller does, once it is confirmed. Automatic
    // sends look the contact up again once their turn has come; a contact that is gone by then ends
    // them without a word, as does a stop that is requested before.
    [[nodiscard]] Refusal prepareSMS(const Prospect &prospect, bool freeProEnabled);
    [[nodiscard]] QCoro::Task<SendOutcome> sendSMSAutomatically(Prospect prospect,
                                                                bool freeProEnabled,
                                                                std::stop_token stop = {},
                                                                HandOverGate gate = {});
    [[nodiscard]] Refusal prepareTestSMS(const QString &phone, const QString &messageID);
    [[nodiscard]] Refusal prepareEmail(const Prospect &prospect);
    [[nodiscard]] QCoro::Task<SendOutcome> sendEmailAutomatically(Prospect prospect,
                                                                  HandOverGate gate = {});

    // The files.
    QString file(Collection collection) const; ///< full path
    void save(Collection collection);
    /// Collections of which memory holds more than their file, since the last write of it failed;
    /// with what the log says of it.
    const std::map<Collection, QString> &unsaved() const;
    /// Paths under which the files are kept that could not be read at the start.
    const QStringList &filesSetAside() const;

Q_SIGNALS:
    /// Something is different; its file is written right afterwards.
    void published(const quenoria::Change &change);

    /// Many records are about to change or go at once, by a deletion or an import; the files are as
    /// they were.
    void aboutToSweep();

    /// A collection or the number for test messages could not be stored: see unsaved().
    void saveFailed();

    /// A collection that was unsaved is in its file now.
    void saved();

private:
    friend class Together;

    HeldState m_state; ///< seen by its own files alone
};

} // namespace quenoria
