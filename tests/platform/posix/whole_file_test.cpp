#include "platform/posix/whole_file_writer.h"
#include "platform/system_reason.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <sys/resource.h>
#include <sys/stat.h>

#include <csignal>
#include <future>

using namespace quenoria;
using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype room = 64 * 1024; ///< bytes that a file may have on the full disk

/// Until it goes, no file of this process may grow past the room: the system refuses the rest.
class FullDisk {
public:
    FullDisk() : m_signal(std::signal(SIGXFSZ, SIG_IGN))
    {
        ::getrlimit(RLIMIT_FSIZE, &m_before);
        const ::rlimit full{rlim_t(room), m_before.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &full);
    }
    ~FullDisk()
    {
        ::setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_signal);
    }
    Q_DISABLE_COPY_MOVE(FullDisk)

private:
    void (*m_signal)(int);
    ::rlimit m_before{};
};

class WholeFile : public testing::Test {
protected:
    QTemporaryDir folder;
    WholeFileWriter files;
    const QString target = folder.filePath(u"suivi « é ».json"_s);

    static QByteArray content(const QString &path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    QStringList names() const
    {
        return QDir(folder.path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }
};

TEST_F(WholeFile, IsForTheUserAloneWhileItGrowsAndAfterwards)
{
    const ::mode_t before = ::umask(0);
    EXPECT_EQ(files.write(target, "ancien"), std::nullopt);
    ASSERT_TRUE(QFile::setPermissions(target, QFile::ReadOwner | QFile::ReadOther));
    EXPECT_EQ(files.writePieces(
                  target,
                  [this](const TakePiece &take) {
                      take("nou");
                      for (const QString &name : names())
                          EXPECT_TRUE(name == QFileInfo(target).fileName() ||
                                      !(QFileInfo(folder.filePath(name)).permissions() & 0x0077));
                      EXPECT_EQ(content(target), "ancien");
                      take("veau");
                  }),
              std::nullopt);
    ::umask(before);
    EXPECT_EQ(content(target), "nouveau");
    EXPECT_EQ(QFileInfo(target).permissions() & 0x0077, 0);
    EXPECT_EQ(names(), QStringList{QFileInfo(target).fileName()});
    EXPECT_EQ(files.makeFolder(folder.filePath(u"a/b"_s)), std::nullopt);
    EXPECT_EQ(QFileInfo(folder.filePath(u"a/b"_s)).permissions() & 0x0077, 0);
}

TEST_F(WholeFile, OnAFullDiskStandsToTheByteWhereverTheRoomEnds)
{
    ASSERT_EQ(files.write(target, "ancien"), std::nullopt);
    for (const qsizetype size : {room + 1, room + 16 * 1024, 3 * room}) {
        const FullDisk disk;
        const QByteArray bytes(size, 'x');
        EXPECT_EQ(files.write(target, bytes), systemReason(EFBIG)) << size;
        EXPECT_EQ(files.writePieces(target,
                                    [&bytes](const TakePiece &take) {
                                        for (const char &byte : bytes)
                                            take({&byte, 1});
                                        take({});
                                    }),
                  systemReason(EFBIG));
        EXPECT_EQ(content(target), "ancien");
        EXPECT_EQ(names().size(), 1) << "the temporary file went";
        EXPECT_EQ(files.write(target + u'2', bytes.first(room)), std::nullopt) << "just enough";
        ASSERT_TRUE(QFile::remove(target + u'2'));
    }
}

struct Obstacle {
    const char *name;
    QString path;
    int error;
};

class WholeFileObstacle : public WholeFile, public testing::WithParamInterface<Obstacle> {};

TEST_P(WholeFileObstacle, IsSaidAndNothingChanges)
{
    ASSERT_TRUE(QDir(folder.path()).mkpath(u"dossier/plein"_s));
    ASSERT_TRUE(QFile::link(u"boucle"_s, folder.filePath(u"boucle"_s)));
    ASSERT_EQ(files.write(folder.filePath(u"fichier"_s), "x"), std::nullopt);
    const QStringList before = names();
    EXPECT_EQ(files.write(folder.filePath(GetParam().path), "x"), systemReason(GetParam().error));
    EXPECT_EQ(names(), before);
}

INSTANTIATE_TEST_SUITE_P(Paths, WholeFileObstacle,
                         testing::Values(Obstacle{"vanishedFolder", u"parti/a.json"_s, ENOENT},
                                         Obstacle{"folderInPlace", u"dossier"_s, EISDIR},
                                         Obstacle{"loop", u"boucle"_s, ELOOP},
                                         Obstacle{"fileAbove", u"fichier/a.json"_s, ENOTDIR},
                                         Obstacle{"longName", QString(256, u'a'), ENAMETOOLONG}),
                         [](const auto &obstacle) { return obstacle.param.name; });

TEST(SystemReason, IsFrenchForWhatDisksSayAndTheSystemsOwnForTheRest)
{
    for (const int error : {EROFS, ENOSPC, EACCES, EIO, EDQUOT, ENOENT})
        EXPECT_NE(systemReason(error), qt_error_string(error));
    EXPECT_EQ(systemReason(qt_error_string(ENOSPC)), u"il n’y a plus de place sur le disque"_s);
    EXPECT_EQ(systemReason(EPROTO), qt_error_string(EPROTO));
    EXPECT_EQ(systemReason(u"trop tard"_s), u"trop tard"_s);
}

TEST_F(WholeFile, BehindALinkIsReplacedWhereItStands)
{
    ASSERT_TRUE(QDir(folder.path()).mkdir(u"ailleurs"_s));
    const QString real = folder.filePath(u"ailleurs/vrai.json"_s);
    ASSERT_EQ(files.write(real, "ancien"), std::nullopt);
    ASSERT_TRUE(QFile::link(u"ailleurs/vrai.json"_s, target));
    EXPECT_EQ(files.write(target, "nouveau"), std::nullopt);
    EXPECT_TRUE(QFileInfo(target).isSymLink());
    EXPECT_EQ(content(real), "nouveau");
}

TEST_F(WholeFile, ManyMayMakeTheFolderAtOnce)
{
    for (int round = 0; round < 50; ++round) {
        const QString made = folder.filePath(u"a%1/données"_s.arg(round));
        std::vector<std::future<std::optional<QString>>> outcomes;
        for (int start = 0; start < 8; ++start)
            outcomes.push_back(std::async(std::launch::async,
                                          [made] { return WholeFileWriter().makeFolder(made); }));
        for (auto &outcome : outcomes)
            EXPECT_EQ(outcome.get(), std::nullopt);
    }
}

TEST_F(WholeFile, LeftByAKilledWriterGoesAtTheNextStart)
{
    for (const QString &name : {u".quenoria-a1B2c3"_s, u".quenoria.lock"_s, u"suivi.json"_s})
        ASSERT_EQ(files.write(folder.filePath(name), "x"), std::nullopt);
    WholeFileWriter::removeLeftovers(folder.path());
    EXPECT_EQ(names(), (QStringList{u".quenoria.lock"_s, u"suivi.json"_s}));
}

} // namespace
