#pragma once

#include "import/import_error.h"

#include <cstdint>

namespace quenoria {

/// What a workbook may ask of the reader, and what is said of one that asks for more.
struct ReaderLimit {
    std::uint64_t most;
    const char16_t *message;

    [[noreturn]] void refuse() const { throw ReaderError(QString::fromUtf16(message)); }
    void check(std::uint64_t amount) const
    {
        if (amount > most)
            refuse();
    }
};

namespace readerLimits {

constexpr std::uint64_t mebi = 1024ULL * 1024;

/// Of all parts that are read: twice what the fullest worksheet of seven columns takes. An archive
/// of a few kilobytes can declare any size, and reading is what costs.
inline constexpr ReaderLimit inflatedBytes{
    512 * mebi, u"Le fichier Excel est trop volumineux pour être importé."};

inline constexpr ReaderLimit parts{
    10'000, u"Le fichier Excel est fait d’un trop grand nombre de parties pour être importé."};

/// Read of the archive before its directory is known.
inline constexpr ReaderLimit directoryBytes{16 * mebi, parts.message};

inline constexpr ReaderLimit depth{
    256, u"Le contenu du fichier Excel est imbriqué trop profondément pour être lu."};

/// expat scans an unfinished tag anew with each chunk, so that an endless one costs its square.
inline constexpr ReaderLimit markupBytes{
    mebi, u"Le contenu du fichier Excel a une balise trop longue pour être lue."};

/// expat keeps every name it ever saw; a real workbook needs a few kilobytes.
inline constexpr ReaderLimit parserBytes{
    32 * mebi, u"Le contenu du fichier Excel a trop de noms différents pour être lu."};

/// Of one cell or one shared string, whatever its column.
inline constexpr ReaderLimit cellBytes{
    2 * mebi, u"Le fichier Excel contient un texte trop long pour être lu."};

/// Of one row, shared strings apart.
inline constexpr ReaderLimit rowBytes{
    4 * mebi, u"Le fichier Excel contient une ligne trop longue pour être lue."};

/// Of a cell that makes a contact: what the 32,767 characters of a spreadsheet take at most.
inline constexpr ReaderLimit contactCellBytes{
    32'767ULL * 3, u"Un contact de ce fichier Excel a un texte de plus de 32 767 caractères."};

/// Kept of a workbook beside 2.4 times its inflated parts: a text may be used by any number of
/// rows.
inline constexpr ReaderLimit keptBytes{
    96 * mebi, u"Les textes des contacts de ce fichier Excel sont trop longs pour être importés."};

} // namespace readerLimits

} // namespace quenoria
