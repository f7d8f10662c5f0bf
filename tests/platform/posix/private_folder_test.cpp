#include "platform/posix/private_folder.h"
#include "platform/system_reason.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

using namespace quenoria;
using namespace Qt::StringLiterals;

namespace {

class PrivateFolder : public testing::Test {
protected:
    QTemporaryDir folder;

    QString make(const QString &name, ::mode_t mode = 0644) const
    {
        QFile file(folder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write("x") == 1);
        EXPECT_EQ(::chmod(QFile::encodeName(file.fileName()).constData(), mode), 0);
        return file.fileName();
    }

    static ::mode_t modeOf(const QString &path)
    {
        struct ::stat found {};
        EXPECT_EQ(::stat(QFile::encodeName(path).constData(), &found), 0);
        return found.st_mode & ALLPERMS;
    }
};

TEST_F(PrivateFolder, IsClosedOnceWithItsOwnFilesOnly)
{
    ASSERT_EQ(::chmod(QFile::encodeName(folder.path()).constData(), 0755), 0);
    const QStringList own{make(u"suivi.json"_s), make(u".quenoria.lock"_s, 0666)};
    const QString other = make(u"notes.txt"_s);
    const QStringList names{u"*.json"_s, u".quenoria*"_s};
    EXPECT_TRUE(closeToOthers(folder.path(), names));
    EXPECT_EQ(modeOf(folder.path()), 0700U);
    for (const QString &file : own)
        EXPECT_EQ(modeOf(file), 0600U) << file.toStdString();
    EXPECT_EQ(modeOf(other), 0644U);
    EXPECT_FALSE(closeToOthers(folder.path(), names)) << "nothing stands open any more";
    EXPECT_FALSE(belongsToAnother(folder.path()));
    EXPECT_EQ(belongsToAnother(u"/"_s), ::geteuid() != 0);
    if (::geteuid() == 0) {
        ASSERT_EQ(::chown(QFile::encodeName(folder.path()).constData(), 65534, 0), 0);
        EXPECT_TRUE(belongsToAnother(folder.path()));
    }
}

TEST_F(PrivateFolder, AFileThatCannotBeReadIsNamedWithTheSystemsReason)
{
    EXPECT_EQ(unreadable(make(u"suivi.json"_s, 0600)), std::nullopt);
    EXPECT_EQ(unreadable(folder.filePath(u"absent.json"_s)), std::nullopt);
    ASSERT_TRUE(QDir(folder.path()).mkdir(u"dossier.json"_s));
    EXPECT_EQ(unreadable(folder.filePath(u"dossier.json"_s)), systemReason(EISDIR));
    ASSERT_TRUE(QFile::link(u"boucle.json"_s, folder.filePath(u"boucle.json"_s)));
    EXPECT_EQ(unreadable(folder.filePath(u"boucle.json"_s)), systemReason(ELOOP));
    ASSERT_TRUE(QFile::link(u"/proc/self/mem"_s, folder.filePath(u"erreur.json"_s)));
    EXPECT_EQ(unreadable(folder.filePath(u"erreur.json"_s)), systemReason(EIO));
    ASSERT_EQ(::mkfifo(QFile::encodeName(folder.filePath(u"tube.json"_s)).constData(), 0600), 0);
    EXPECT_NE(unreadable(folder.filePath(u"tube.json"_s)), std::nullopt);
    if (::geteuid() != 0) {
        EXPECT_EQ(unreadable(make(u"fermé.json"_s, 0)), systemReason(EACCES));
    }
}

} // namespace
