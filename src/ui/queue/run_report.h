#pragma once

#include "model/channel.h"
#include "model/records.h"
#include "ui/queue/queue_state.h"

#include <QHash>

#include <vector>

namespace quenoria {

/// What became of one contact in a pass through a queue.
struct ContactOutcome {
    enum class Kind {
        sent,
        skipped,
        refused,
        inDoubt, ///< may have left
        pending, ///< its turn did not come: it stays selected
    };

    QString id;
    QString label;
    Kind kind = Kind::pending;
    QString words = {}; ///< why, if there is more to say
    bool operator==(const ContactOutcome &) const = default;
};

/// What became of a pass through a queue, in the order in which contacts had their turn.
struct RunReport {
    QString title; ///< of the queue
    std::vector<ContactOutcome> contacts;

    /// Whether anything was done at all.
    [[nodiscard]] bool isWorthTelling() const;

    /// "12 envoyés, 1 refusé (Numéro refusé), 3 en attente"
    [[nodiscard]] QString summary() const;
};

/// "envoyé", "refusé".
[[nodiscard]] QString inWords(ContactOutcome::Kind kind);

/// Takes down what becomes of each contact while a queue is worked. A contact that has its turn
/// again has the later outcome.
class RunLog {
public:
    /// What the event and the action that followed it mean for their contact.
    void note(const QueueEvent &event, QueueAction action, const Prospect &contact);

    void notePassedOver(const Prospect &contact, const QString &servedAs);

    /// With those whose turn did not come.
    [[nodiscard]] RunReport report(const QString &title,
                                   const std::vector<ContactOutcome> &pending) const;

private:
    void note(const SendOutcome &outcome, const Prospect &contact);
    void set(const Prospect &contact, ContactOutcome::Kind kind, const QString &words = {});

    struct Entry {
        int turn;
        ContactOutcome outcome;
    };
    QHash<QString, Entry> m_entries; ///< by id
    int m_turns = 0;
};

} // namespace quenoria
