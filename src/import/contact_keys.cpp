#include "import/contact_keys.h"

#include "model/contact_rules.h"

namespace quenoria {

IdsByKey idsByKey(const std::vector<Prospect> &prospects)
{
    IdsByKey ids;
    ids.reserve(prospects.size());
    for (const Prospect &prospect : prospects)
        ids.try_emplace(duplicateKey(prospect), prospect.id);
    for (const Prospect &prospect : prospects)
        ids.try_emplace(prospect.id, prospect.id);
    return ids;
}

const QString &idOf(const IdsByKey &ids, const QString &key)
{
    const auto known = ids.find(key);
    return known == ids.end() ? key : known->second;
}

} // namespace quenoria
