#include "import/archive_file.h"

#include "import/reader_limits.h"

#include <QFileInfo>

namespace quenoria {

ArchiveFile::ArchiveFile(const QString &path, std::stop_token stop)
    : m_file(path), m_stop(std::move(stop))
{
    zip_error_init(&m_error);
    // a pipe would keep its reader waiting for ever
    if (!QFileInfo(path).isFile() || !m_file.open(QFile::ReadOnly | QFile::Unbuffered))
        fail();
}

ArchiveFile::~ArchiveFile() { zip_error_fini(&m_error); }

zip_t *ArchiveFile::openArchive()
{
    zip_source_t *source = zip_source_function_create(&ArchiveFile::serve, this, nullptr);
    zip_t *archive = source ? zip_open_from_source(source, ZIP_RDONLY, nullptr) : nullptr;
    if (!archive) {
        zip_source_free(source);
        fail();
    }
    m_isOpen = true;
    return archive;
}

void ArchiveFile::fail() const
{
    if (m_stop.stop_requested())
        throw ImportAbandoned();
    readerLimits::directoryBytes.check(m_readToOpen);
    throw UnreadableWorkbook();
}

zip_int64_t ArchiveFile::serve(void *self, void *data, zip_uint64_t size, zip_source_cmd_t command)
{
    return static_cast<ArchiveFile *>(self)->answer(data, size, command);
}

zip_int64_t ArchiveFile::answer(void *data, zip_uint64_t size, zip_source_cmd_t command)
{
    switch (command) {
    case ZIP_SOURCE_OPEN:
        return m_file.seek(0) ? 0 : -1;
    case ZIP_SOURCE_READ:
        return read(data, size);
    case ZIP_SOURCE_SEEK:
        return seek(data, size);
    case ZIP_SOURCE_TELL:
        return m_file.pos();
    case ZIP_SOURCE_STAT:
        return describe(data, size);
    case ZIP_SOURCE_ERROR:
        return zip_error_to_data(&m_error, data, size);
    case ZIP_SOURCE_SUPPORTS:
        return ZIP_SOURCE_SUPPORTS_SEEKABLE;
    case ZIP_SOURCE_CLOSE:
    case ZIP_SOURCE_FREE:
        return 0;
    default:
        zip_error_set(&m_error, ZIP_ER_OPNOTSUPP, 0);
        return -1;
    }
}

zip_int64_t ArchiveFile::read(void *data, zip_uint64_t size)
{
    if (!m_isOpen)
        m_readToOpen += size;
    const bool isAllowed =
        !m_stop.stop_requested() && m_readToOpen <= readerLimits::directoryBytes.most;
    const qint64 count = isAllowed ? m_file.read(static_cast<char *>(data), qint64(size)) : -1;
    if (count < 0)
        zip_error_set(&m_error, ZIP_ER_READ, 0);
    return count;
}

zip_int64_t ArchiveFile::seek(void *data, zip_uint64_t size)
{
    const zip_int64_t offset = zip_source_seek_compute_offset(
        zip_uint64_t(m_file.pos()), zip_uint64_t(m_file.size()), data, size, &m_error);
    return offset >= 0 && m_file.seek(offset) ? 0 : -1;
}

zip_int64_t ArchiveFile::describe(void *data, zip_uint64_t size)
{
    auto *const stat = ZIP_SOURCE_GET_ARGS(zip_stat_t, data, size, &m_error);
    if (!stat)
        return -1;
    zip_stat_init(stat);
    stat->size = zip_uint64_t(m_file.size());
    stat->valid = ZIP_STAT_SIZE;
    return sizeof *stat;
}

} // namespace quenoria
