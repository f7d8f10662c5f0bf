#pragma once

#include "model/collections.h"
#include "model/key_index.h"
#include "model/records.h"
#include "platform/platform.h"
#include "platform/task_scope.h"
#include "store/channel_data.h"
#include "store/collection.h"
#include "store/do_not_contact.h"
#include "store/refusal.h"

#include <QStringList>

#include <map>

namespace quenoria {

class ProspectStore;

/// What a ProspectStore holds, and the steps that its operations share. Only the files that define
/// its operations include this; everybody else sees prospect_store.h.
struct StoreState {
    StoreState(ProspectStore &owner, const Platform &services);

    // Start-up, in the order in which it happens.
    void readContacts();
    void readHistories(); ///< the store is ready then
    void loadFiles(const std::vector<const CollectionDescriptor *> &rows);
    void adopt(const CollectionDescriptor &row, const std::optional<DecodedFile> &decoded);
    void completeContacts();
    void migrateDefaultMessage();
    void completeTemplates();
    void completeDepartments();
    void seedStatus();

    [[nodiscard]] Refusal writeFile(Collection collection) const;

    /// Announces that the collection changed, for these contacts where it holds records of theirs,
    /// then writes its file once the store is ready.
    void publish(Collection collection, IdSet ids = {});
    void announce(Change change);
    void announceSelection(Channel channel, IdSet ids);

    // Contacts.
    const std::vector<Prospect> &mergedList();
    struct MergedIndex;
    const MergedIndex &mergedIndex();
    [[nodiscard]] Prospect effective(const Prospect &prospect) const;
    void rememberStopsOf(const IdSet &ids);
    void forget(const IdSet &ids);
    bool copyRecords(const std::map<QString, QString> &origins);
    [[nodiscard]] QStringList twins(const QString &id);

    // Tracking; without a record the contact's goes.
    void setStatus(const QString &id, std::optional<SendStatus> status);
    void countSend(Channel channel, const Prospect &prospect, Instant date);
    void stopWithTwins(const QString &id);
    [[nodiscard]] QString monthKey(Instant date) const;
    void mergeExistingSMSHistoryIntoMonthlyRecipients();

    // The selections.
    IdSet &selection(Channel channel);
    void select(Channel channel, bool selected, const QString &id);
    void clearSelection(Channel channel);

    ProspectStore &store; ///< whose state this is
    Platform platform;
    DoNotContact doNotContact;

    // The collections.
    AllChannelData channels;
    Sequence<Prospect> customProspects;
    Dictionary<QString> emailOverrides;
    Dictionary<ContactOverride> contactOverrides;
    Dictionary<QString> attachmentPaths;
    IdSet deletedProspectIDs;
    Sequence<DepartmentInfo> departments;
    Dictionary<TextSet> smsMonthlyRecipientsByMonth;

    // What has no file among them.
    QString testNumber;
    std::vector<Prospect> prospects; ///< built in
    std::optional<Instant> lastAutomaticSMSSentAt;
    bool automaticSMSBusy = false;

    bool contactsAreRead = false;
    bool isReady = false;
    bool isReading = false; ///< the histories, which may be half there
    std::map<Collection, QString> unsaved;
    QStringList filesSetAside;
    struct Gathered {
        std::map<Collection, IdSet> collections;
        std::map<Channel, IdSet> selections;
    };
    std::optional<Gathered> gathered; ///< of the Together that lives

    TaskScope tasks; ///< automatic sends

    // The merged list, made anew after what changes it, and what is looked up in it: once anybody
    // does, for a start shows the contacts without.
    std::vector<Prospect> merged;
    bool mergedIsCurrent = false;
    struct MergedIndex {
        KeyIndex firstPlaces;
        std::map<QString, QStringList> twinsByFirst; ///< by the id that they shared
        bool idsAreShared = false;                   ///< by contacts of an older folder
    };
    std::optional<MergedIndex> indexOfMerged;
};

} // namespace quenoria
