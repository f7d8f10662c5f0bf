#pragma once

#include "import/archive_file.h"
#include "import/byte_source.h"
#include "import/import_watch.h"

#include <QString>

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace quenoria {

/// The ZIP archive that a workbook is, with the two kinds of parts that are read from it. Every
/// failure is a ReaderError.
class WorkbookPackage {
public:
    struct Part {
        QString name; ///< path inside the archive, written the one usual way
        std::uint64_t index = 0;
        std::uint64_t size = 0; ///< inflated, as the archive declares it
    };

    WorkbookPackage(const QString &path,
                    const ImportWatch &watch); ///< keeps a reference to the watch

    const std::optional<Part> &sharedStrings() const { return m_sharedStrings; }
    std::uint64_t inflatedBytes() const { return m_size; }
    const std::vector<Part> &worksheets() const { return m_worksheets; } ///< in reading order

    /// The part's inflated bytes. Its end is reached only once size and checksum have been found
    /// right. The source must not outlive the package.
    ByteSource open(const Part &part);

private:
    void findParts();
    void keep(const zip_stat_t &entry, Part part);
    void advance(std::uint64_t bytes);

    ArchiveFile m_file; ///< outlives the archive
    std::unique_ptr<zip_t, void (*)(zip_t *)> m_archive;
    const ImportWatch &m_watch;
    std::optional<Part> m_sharedStrings;
    std::vector<Part> m_worksheets;
    std::uint64_t m_size = 0; ///< of all parts, inflated
    std::uint64_t m_read = 0;
};

} // namespace quenoria
