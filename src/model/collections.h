#pragma once

#include "model/dictionary.h"
#include "model/id_set.h"
#include "model/sequence.h"
#include "model/text_set.h"

namespace quenoria {

/// The whole file of a set.
inline void writeJson(const IdSet &ids, const TakePiece &take, Texts /*texts*/ = Texts::kept)
{
    std::string out;
    appendJson(out, ids, 0);
    take(out + '\n');
}

/// The whole file of a sequence or a dictionary.
template <typename Shape>
void writeJson(const Shape &collection, const TakePiece &take, Texts texts = Texts::kept)
{
    collection.writeJson(take, texts);
}

/// Decodes a collection's file, or gives nothing.
template <typename Shape>
std::optional<Shape> decodeCollection(const QByteArray &bytes)
{
    if constexpr (requires { Shape::fromJson(bytes); })
        return Shape::fromJson(bytes);
    else
        return decodeJson<Shape>(bytes);
}

} // namespace quenoria
