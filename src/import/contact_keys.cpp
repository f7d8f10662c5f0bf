#include "import/contact_keys.h"

#include "model/contact_rules.h"

namespace quenoria {

QHash<QString, QString> idsByKey(const std::vector<Prospect> &prospects)
{
    QHash<QString, QString> ids;
    ids.reserve(qsizetype(prospects.size()));
    for (const Prospect &prospect : prospects) {
        const QString key = duplicateKey(prospect);
        if (!ids.contains(key))
            ids.insert(key, prospect.id);
    }
    for (const Prospect &prospect : prospects) {
        if (!ids.contains(prospect.id))
            ids.insert(prospect.id, prospect.id);
    }
    return ids;
}

} // namespace quenoria
