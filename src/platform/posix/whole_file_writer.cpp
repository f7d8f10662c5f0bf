#include "platform/posix/whole_file_writer.h"

#include "platform/posix/descriptor.h"
#include "platform/system_reason.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

/// The file that is replaced: behind a link, what the link names.
std::optional<QByteArray> realTarget(const QByteArray &path)
{
    struct ::stat found {};
    if (::lstat(path.constData(), &found) != 0 || !S_ISLNK(found.st_mode))
        return path;
    const std::unique_ptr<char, decltype(&std::free)> real(::realpath(path.constData(), nullptr),
                                                           &std::free);
    if (real)
        return QByteArray(real.get());
    return errno == ENOENT ? std::optional(path) : std::nullopt; // a link to nothing gives way
}

/// A new file beside the target; it goes away again unless it was put in the target's place.
class TemporaryFile {
public:
    explicit TemporaryFile(const QByteArray &folder)
        : m_path(folder + "/.quenoria-XXXXXX"),
          m_file(::mkostemp(m_path.data(), O_CLOEXEC)) // for the user alone
    {
    }
    ~TemporaryFile()
    {
        if (m_isThere)
            ::unlink(m_path.constData());
    }
    Q_DISABLE_COPY_MOVE(TemporaryFile)

    [[nodiscard]] bool isOpen() const { return m_isThere; }

    [[nodiscard]] bool write(std::string_view bytes)
    {
        m_size += bytes.size();
        while (!bytes.empty()) {
            const ssize_t written = ::write(m_file.number(), bytes.data(), bytes.size());
            if (written < 0 && errno != EINTR)
                return false;
            if (written > 0)
                bytes.remove_prefix(std::size_t(written));
        }
        beginSync();
        return true;
    }

    [[nodiscard]] bool putInPlaceOf(const QByteArray &target)
    {
        if (::fsync(m_file.number()) != 0 || !m_file.close() ||
            ::rename(m_path.constData(), target.constData()) != 0)
            return false;
        m_isThere = false;
        return true;
    }

private:
    /// The disk works on a large file's beginning while its end is still being made; what became of
    /// it, the sync of the whole tells.
    void beginSync()
    {
#ifdef SYNC_FILE_RANGE_WRITE
        constexpr std::size_t share = std::size_t{1} << 20U;
        if (m_size - m_syncBegun < share)
            return;
        (void)::sync_file_range(m_file.number(), ::off_t(m_syncBegun),
                                ::off_t(m_size - m_syncBegun), SYNC_FILE_RANGE_WRITE);
        m_syncBegun = m_size;
#endif
    }

    QByteArray m_path;
    Descriptor m_file;
    std::size_t m_size = 0;
    std::size_t m_syncBegun = 0; ///< up to there
    bool m_isThere = m_file.isOpen();
};

std::optional<::dev_t> deviceOf(const QByteArray &path)
{
    struct ::stat found {};
    return ::stat(path.constData(), &found) == 0 ? std::optional(found.st_dev) : std::nullopt;
}

/// Some file systems have nothing to sync in a folder, and say so.
bool syncFolder(const Descriptor &folder)
{
    return ::fsync(folder.number()) == 0 || errno == EINVAL;
}

} // namespace

std::optional<QString> WholeFileWriter::writePieces(const QString &path, const GivePieces &give)
{
    const auto target = realTarget(QFile::encodeName(path));
    if (!target)
        return systemReason();
    const QByteArray folderPath =
        QFile::encodeName(QFileInfo(QFile::decodeName(*target)).absolutePath());
    const Descriptor folder(::open(folderPath.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!folder.isOpen())
        return systemReason();
    if (isElsewhere(folderPath, *target))
        return systemReason(ENODEV);
    TemporaryFile file(folderPath);
    if (!file.isOpen())
        return systemReason();
    int failure = 0;
    give([&file, &failure](std::string_view piece) {
        if (failure == 0 && !file.write(piece))
            failure = errno;
    });
    if (failure != 0)
        return systemReason(failure);
    if (!file.putInPlaceOf(*target) || !syncFolder(folder))
        return systemReason();
    return {};
}

std::optional<QString> WholeFileWriter::makeFolder(const QString &path)
{
    const QByteArray folder = QFile::encodeName(QFileInfo(path).absoluteFilePath());
    const std::lock_guard lock(m_mutex);
    if (m_devices.contains(folder))
        return {}; // the writing says whether it still is there
    QDir().mkpath(QFileInfo(path).absolutePath());
    if (!QFileInfo(path).isDir() && ::mkdir(folder.constData(), S_IRWXU) != 0) {
        const int failure = errno;
        if (failure != EEXIST || !QFileInfo(path).isDir()) // another start may have made it
            return systemReason(failure);
    }
    m_devices[folder] = deviceOf(folder).value_or(0);
    return {};
}

/// Where a disk was taken out, its mount point stays behind: an empty folder of another disk.
bool WholeFileWriter::isElsewhere(const QByteArray &folder, const QByteArray &target)
{
    const std::lock_guard lock(m_mutex);
    const auto known = m_devices.find(folder);
    return known != m_devices.end() && deviceOf(folder) != known->second &&
           ::access(target.constData(), F_OK) != 0;
}

void WholeFileWriter::removeLeftovers(const QString &folder)
{
    QDir leftovers(folder, u".quenoria-??????"_s, QDir::Unsorted, QDir::Files | QDir::Hidden);
    for (const QString &name : leftovers.entryList())
        leftovers.remove(name);
}

} // namespace quenoria
