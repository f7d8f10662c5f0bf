#pragma once

#include <QString>

namespace quenoria {

class ContactTableModel;
class ProspectStore;
class Switches;

/// The texts of the header that count something.
struct HeaderTexts {
    QString counts;
    QString smsQueue;
    QString emailQueue;
    QString deletion;
    QString quota;
    bool quotaIsReached = false;

    static HeaderTexts of(const ProspectStore &store, const Switches &switches,
                          const ContactTableModel &model);
};

} // namespace quenoria
