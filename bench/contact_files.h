#pragma once

#include "model/collections.h"

namespace quenoria::bench {

/// Id of the n-th contact: digits that are too many for anybody's number.
inline QString idOf(int contact)
{
    return QStringLiteral("063998%1").arg(contact, 8, 10, QChar(u'0'));
}

/// The file that a store would write for the collection.
template <typename Shape>
QByteArray fileOf(const Shape &collection)
{
    QByteArray file;
    writeJson(collection, [&file](std::string_view piece) {
        file.append(piece.data(), qsizetype(piece.size()));
    });
    return file;
}

} // namespace quenoria::bench
