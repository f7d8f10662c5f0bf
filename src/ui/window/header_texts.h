#pragma once

#include "model/channel.h"

#include <QString>

#include <map>

namespace quenoria {

class ContactTableModel;
class SendDesk;
class Switches;

/// The texts of the header that count something.
struct HeaderTexts {
    QString counts;
    std::map<Channel, QString> queues;
    QString deletion;
    QString stopReplies;
    bool hasStopReplies = false;
    QString quota;
    bool quotaIsReached = false;
    bool importCanBeUndone = false;

    static HeaderTexts of(SendDesk &desk, const Switches &switches, const ContactTableModel &model);
};

} // namespace quenoria
