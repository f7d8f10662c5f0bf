#pragma once

#include <QFile>

#include <zip.h>

#include <stop_token>

namespace quenoria {

/// A file as the archive library reads it: piece by piece, until it is stopped. Without this the
/// library would read a directory of any length, or data that inflate to nothing, in one go.
class ArchiveFile {
public:
    /// Throws a ReaderError when the file cannot be opened.
    ArchiveFile(const QString &path, std::stop_token stop);
    ~ArchiveFile();
    ArchiveFile(const ArchiveFile &) = delete;
    ArchiveFile &operator=(const ArchiveFile &) = delete;

    /// The archive, its directory read; must not outlive this. Throws a ReaderError or
    /// ImportAbandoned.
    [[nodiscard]] zip_t *openArchive();

    /// Throws why the library could not read on: ImportAbandoned or a ReaderError.
    [[noreturn]] void fail() const;

private:
    static zip_int64_t serve(void *self, void *data, zip_uint64_t size, zip_source_cmd_t command);
    zip_int64_t answer(void *data, zip_uint64_t size, zip_source_cmd_t command);
    zip_int64_t read(void *data, zip_uint64_t size);
    zip_int64_t seek(void *data, zip_uint64_t size);
    zip_int64_t describe(void *data, zip_uint64_t size);

    QFile m_file;
    std::stop_token m_stop;
    zip_error_t m_error{};
    std::uint64_t m_readToOpen = 0;
    bool m_isOpen = false;
};

} // namespace quenoria
