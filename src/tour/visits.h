#pragma once

#include "tour/guide.h"

#include <QStringList>

namespace quenoria {

class ContentView;
class ProspectStore;
struct Platform;

/// The contacts that a visit wrote to.
struct VisitedContacts {
    QStringList sms;    ///< ids
    QStringList emails; ///< ids
};

/// Reads the report of the demonstration's import, which is under way.
void visitImport(Guide &guide);

/// Works through both queues: one message prepared and confirmed by hand, the others sent by the
/// automatic run. One of the recipients answers STOP.
[[nodiscard]] VisitedContacts visitQueues(Guide &guide, const ProspectStore &store);

/// Opens every other sheet and uses some of them.
void visitSheets(Guide &guide, ContentView &window, const Platform &platform);

/// Reads the thirteen files and the outbox; throws a TourFailure when something is missing.
void checkFiles(Guide &guide, const ProspectStore &store, const VisitedContacts &visited);

} // namespace quenoria
