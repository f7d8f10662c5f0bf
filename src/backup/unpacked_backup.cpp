#include "backup/unpacked_backup.h"

#include "backup/backup_files.h"
#include "backup/pending_restore.h"
#include "backup/unrestorable.h"
#include "store/collection.h"
#include "store/prospect_store.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

const QString notWritten =
    u"La sauvegarde n’a pas pu être dépliée à côté de vos données, qui restent "
    "telles quelles : "_s;
const QString unreadable =
    u"Cette sauvegarde est endommagée : un de ses fichiers n’a pas pu être lu."_s;

void mustBeDone(const std::optional<QString> &refusal)
{
    if (refusal)
        throw Unrestorable{notWritten + *refusal};
}

struct OneFolder : Folders {
    QString path;
    explicit OneFolder(QString folder) : path(std::move(folder)) {}
    QString data() const override { return path; }
};

struct NoLog : SystemLog {
    void write(const QString &) override {} // what is wrong there is told otherwise
};

} // namespace

struct UnpackedBackup::Aside {
    OneFolder folders;
    NoLog log;
    Platform platform;

    explicit Aside(const Platform &all)
        : folders(unpackedFolder(all.folders.data())), platform{all.clock,      all.preferences,
                                                                folders,        all.scripts,
                                                                all.workspace,  all.sharing,
                                                                all.pasteboard, all.panels,
                                                                all.resources,  log,
                                                                all.files,      all.handOver,
                                                                all.mailbox,    all.carriers}
    {
    }
};

UnpackedBackup::UnpackedBackup(const BackupArchive &archive, const Platform &platform)
    : m_platform(platform), m_aside(std::make_unique<Aside>(platform))
{
    try {
        unpack(archive);
        m_store = std::make_unique<ProspectStore>(m_aside->platform);
        if (!m_store->filesSetAside().isEmpty())
            throw Unrestorable{unreadable};
        if (!m_store->unsaved().empty())
            throw Unrestorable{notWritten + m_store->unsaved().begin()->second};
    } catch (...) {
        m_store.reset();
        giveUpRestore(m_platform);
        throw;
    }
}

UnpackedBackup::~UnpackedBackup()
{
    m_store.reset();
    if (!m_isKept)
        giveUpRestore(m_platform);
}

void UnpackedBackup::unpack(const BackupArchive &archive) const
{
    FileWriter &files = m_platform.files;
    const QString folder = m_aside->folders.path;
    giveUpRestore(m_platform); // of before
    QDir().mkpath(folder);     // whether it is there, the writing says
    for (const BackedUpFile &file : backedUpFiles()) {
        if (archive.holds(file.name))
            mustBeDone(
                files.writePieces(QDir(folder).filePath(file.name),
                                  [&](const TakePiece &take) { archive.read(file.name, take); }));
    }
}

/// A file that the backup does not know of is written empty: else the present one would stay.
void UnpackedBackup::keep()
{
    const QDir unpacked(m_aside->folders.path);
    const QDir present(m_platform.folders.data());
    const auto isMissing = [&](const QString &name) {
        return !unpacked.exists(name) && present.exists(name);
    };
    for (const CollectionDescriptor &row : collections()) {
        if (isMissing(QString::fromUtf16(row.fileName)))
            m_store->save(row.collection);
    }
    if (!m_store->unsaved().empty())
        throw Unrestorable{notWritten + m_store->unsaved().begin()->second};
    for (const BackedUpFile &file : backedUpFiles()) {
        if (isMissing(file.name))
            mustBeDone(m_platform.files.write(unpacked.filePath(file.name), "[]\n"));
    }
    m_isKept = true;
}

} // namespace quenoria
