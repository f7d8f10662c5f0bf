#pragma once

#include "import/import_report.h"
#include "model/records.h"
#include "store/change.h"

#include <QObject>

#include <map>

namespace quenoria {

class ProspectStore;
struct ProspectImportAnalysis;

/// A record as it was before an import and as the import left it.
template <typename Record>
struct Replaced {
    std::optional<Record> before;
    std::optional<Record> after;
};

/// What an import changed.
struct ImportedChanges {
    std::vector<QString> added; ///< ids of the new contacts, sorted
    std::map<QString, Replaced<QString>> emailOverrides;
    std::map<QString, Replaced<ContactOverride>> contactOverrides;
    std::map<QString, Replaced<SendStatus>> statuses;
    std::vector<DepartmentInfo> departments; ///< added ones

    bool empty() const; ///< departments alone are nothing to undo
    bool hasAdded(const QString &id) const;
    bool concern(const QString &id) const;
    std::size_t addresses() const { return emailOverrides.size() + contactOverrides.size(); }
};

/// Remembers the last import of the session for as long as it can be taken back: until something
/// was sent to a contact that it brought or changed, or something about one was changed, or the
/// next import. Confined to the main thread.
class ImportUndo : public QObject {
    Q_OBJECT

public:
    explicit ImportUndo(ProspectStore &store, QObject *parent = nullptr);

    /// Merges the analysis; what it changes can be taken back from then on.
    ImportReport merge(ProspectImportAnalysis analysis);

    bool isOffered() const { return !m_changes.empty(); }
    const ImportedChanges &changes() const { return m_changes; }

    /// A message went to the contact, or may have.
    void noteSend(const QString &contactId);

    /// Takes the import back, each file written once. False when it was not offered any more.
    [[nodiscard]] bool undo();

Q_SIGNALS:
    void offeredChanged();

private:
    void follow(const Change &change);
    void forget();

    ProspectStore &m_store;
    ImportedChanges m_changes;
    bool m_isAtWork = false; ///< what is published is its own doing
};

} // namespace quenoria
