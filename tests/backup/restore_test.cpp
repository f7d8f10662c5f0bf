#include "backup/backup_files.h"
#include "backup/backup_list.h"
#include "backup/backups.h"
#include "backup/pending_restore.h"
#include "backup/restore.h"
#include "import/package.h"
#include "platform/posix/moved_file.h"
#include "store/defaults.h"
#include "store/do_not_contact.h"
#include "store/store_fixture.h"

using namespace quenoria;
using namespace quenoria::test;
using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

namespace {

/// A disk to which nothing gets from some act on: it is full, or the process was killed.
struct CutDisk : WholeFileWriter {
    int left = 1000; ///< acts

    std::optional<QString> writePieces(const QString &path, const GivePieces &give) override
    {
        return left-- > 0 ? WholeFileWriter::writePieces(path, give) : u"plein"_s;
    }
    std::optional<QString> move(const QString &from, const QString &to)
    {
        return left-- > 0 ? moveFile(from, to) : u"plein"_s;
    }
};

class RestoreTest : public StoreTest {
protected:
    using Files = std::map<QString, QByteArray>;

    Files files() const
    {
        Files found;
        for (const BackedUpFile &each : backedUpFiles())
            found[each.name] = desktop.file(each.name);
        return found;
    }

    /// Backs up what is there, in a file elsewhere.
    Files backUp()
    {
        Backups backups(store(), desktop.platform());
        EXPECT_EQ(backups.saveTo(path).result(), std::nullopt);
        return files();
    }

    /// What restores, on its own disk.
    Platform platform()
    {
        const Platform all = desktop.platform();
        return {all.clock,   all.preferences, all.folders, all.scripts,   all.workspace,
                all.sharing, all.pasteboard,  all.panels,  all.resources, all.log,
                disk,        all.handOver,    all.mailbox, all.carriers};
    }

    Refusal prepare(bool keepsAll = true)
    {
        const auto preview = previewRestore(path, presentState(store()), platform());
        if (const auto *failure = std::get_if<QString>(&preview))
            return *failure;
        return prepareRestore({path, std::make_shared<Snapshot>(store(), platform()),
                               std::get<RestorePreview>(preview).memory, keepsAll, keepsAll},
                              platform());
    }

    Refusal restore(bool keepsAll = true)
    {
        if (Refusal refusal = prepare(keepsAll))
            return refusal;
        if (Refusal refusal = decideRestore(platform()))
            return refusal;
        return startAgain();
    }

    Refusal startAgain()
    {
        restart();
        const auto move = [this](const QString &from, const QString &to) {
            return disk.move(from, to);
        };
        return endRestore(platform(), move).failure;
    }

    bool isClean() const { return !QDir(restoreFolder(desktop.folders.data())).exists(); }

    CutDisk disk;
    QTemporaryDir elsewhere;
    QString path = elsewhere.filePath(u"clé.zip"_s);
};

struct File {
    const char *name;
    const char *then;
    const char *now;
    const char *restored = nullptr; ///< else as it was then
};

class EachFile : public RestoreTest, public testing::WithParamInterface<File> {};

TEST_P(EachFile, NeverBringsBackConsentNorForgetsASend)
{
    const File &file = GetParam();
    const QString name = QString::fromLatin1(file.name);
    desktop.writeFile(name, file.then);
    const QByteArray then = backUp()[name];
    restart();
    desktop.writeFile(name, file.now);
    ASSERT_EQ(restore(), std::nullopt);
    if (!file.restored) {
        EXPECT_EQ(desktop.file(name), then);
        return;
    }
    QJsonDocument restored = QJsonDocument::fromJson(desktop.file(name));
    if (QJsonObject object = restored.object(); object.contains(seededContactID())) {
        object.remove(seededContactID()); // every start has it
        restored.setObject(object);
    }
    EXPECT_EQ(restored.toJson(), QJsonDocument::fromJson(file.restored).toJson());
}

INSTANTIATE_TEST_SUITE_P(
    Files, EachFile,
    testing::Values(
        File{"nouveaux-numeros.json",
             R"([{"department":"29","id":"0639980020","isCustom":true,"label":"D","phone":""}])",
             "[]"},
        File{"suivi-envois.json",
             R"({"0639980010":{"sent":true,"sentAt":"2026-01-01T10:00:00Z","comment":"alors",
                               "sendHistory":["2026-01-01T10:00:00Z"]},
                 "0639980012":{"sent":false,"sentAt":"2026-01-01T10:00:00Z","stopped":true}})",
             R"({"0639980010":{"sent":false,"sentAt":"2026-02-01T10:00:00Z","stopped":true,
                               "comment":"depuis","sendHistory":["2026-02-01T10:00:00Z"]},
                 "0639980020":{"sent":false,"sentAt":"2026-01-01T10:00:00Z","stopped":true},
                 "0639980021":{"sent":true,"sentAt":"2026-01-01T10:00:00Z"}})",
             R"({"0639980010":{"sent":true,"sentAt":"2026-02-01T10:00:00Z","stopped":true,
                     "comment":"alors",
                     "sendHistory":["2026-01-01T10:00:00Z","2026-02-01T10:00:00Z"]},
                 "0639980012":{"sent":false,"sentAt":"2026-01-01T10:00:00Z","stopped":true},
                 "0639980020":{"sent":false,"sentAt":"2026-03-10T09:00:00Z","stopped":true},
                 "0639980021":{"sent":true,"sentAt":"2026-01-01T10:00:00Z",
                     "sendHistory":["2026-01-01T10:00:00Z"]}})"},
        File{"modeles-messages.json", R"([{"id":"a","title":"A","body":"alors"}])",
             R"([{"id":"a","title":"A","body":"depuis"}])"},
        File{"associations-messages.json", R"({"0639980010":"a"})", "{}"},
        File{"suivi-envois-mails.json",
             R"({"0639980010":{"sent":true,"sentAt":"2026-01-01T10:00:00Z"}})",
             R"({"0639980010":{"sent":true,"sentAt":"2025-12-01T10:00:00Z"}})",
             R"({"0639980010":{"sent":true,"sentAt":"2026-01-01T10:00:00Z",
                     "sendHistory":["2025-12-01T10:00:00Z","2026-01-01T10:00:00Z"]}})"},
        File{"modeles-mails.json", R"([{"id":"a","title":"A","subject":"S","body":"alors"}])",
             "[]"},
        File{"associations-mails.json", R"({"0639980010":"a"})", R"({"0639980012":"b"})"},
        File{"adresses-mails-completees.json", R"({"0639980012":"c@example.org"})", "{}"},
        File{"contacts-modifies.json",
             R"({"0639980010":{"label":"L","phone":"06 39 98 00 10","department":"29"}})", "{}"},
        File{"fichiers-joints.json", R"({"0639980010":"/offre.pdf"})", "{}"},
        File{"contacts-supprimes.json", R"(["0639980012"])", "[]"},
        File{"departements.json", R"([{"code":"29","name":"Finistère"}])",
             R"([{"code":"29","name":"Ailleurs"}])"},
        File{"quota-destinataires-sms.json", R"({"2026-01":["0639980010"]})",
             R"({"2026-01":["0639980012"],"2026-03":["0639980010"]})",
             R"({"2026-01":["0639980010","0639980012"],"2026-03":["0639980010"]})"},
        File{"numeros-a-ne-pas-contacter.json", R"(["0639980030"])", R"(["0639980031"])",
             R"(["0639980030","0639980031"])"}),
    [](const auto &file) {
        return QString::fromLatin1(file.param.name).chopped(5).remove(u'-').toStdString();
    });

TEST_F(RestoreTest, WithoutWhatHappenedSinceEveryFileIsEqualToTheByte)
{
    ASSERT_EQ(store().add(u"Dora"_s, u"06 39 98 00 20"_s, {}, u"29"_s, {}), std::nullopt);
    store().recordSentNow(alix());
    const Files then = backUp();
    store().setStopped(true, alix());
    store().recordSentNow(chloe());
    store().deleteProspects({u"0639980020"_s});
    const Files now = files();
    ASSERT_EQ(restore(false), std::nullopt);
    EXPECT_EQ(files(), then);
    EXPECT_TRUE(isClean());
    path = storedBackups(backupFolder(desktop.folders.data())).front().path;
    ASSERT_EQ(restore(false), std::nullopt);
    EXPECT_EQ(files(), now) << "there is a way back";
}

TEST_F(RestoreTest, AContactThatWasStoppedAndThenDeletedComesBackStopped)
{
    ASSERT_EQ(store().add(u"Dora"_s, u"06 39 98 00 20"_s, {}, u"29"_s, {}), std::nullopt);
    backUp();
    desktop.clock.advance(24h);
    {
        const Backups automatic(store(), desktop.platform());
        store().setStopped(true, alix());
        store().recordSentNow(alix());
        store().deleteProspects({alix().id, u"0639980020"_s});
        ASSERT_EQ(store().addToDoNotContact({u"0639980020"_s}), std::nullopt);
    }
    ASSERT_EQ(restore(), std::nullopt);
    EXPECT_TRUE(store().isStopped(alix()));
    EXPECT_EQ(store().sendHistory(alix()).size(), 1U);
    EXPECT_TRUE(store().isStopped(*store().prospect(u"0639980020"_s))) << "listed since";
}

TEST_F(RestoreTest, AStopOutlivesItsContactAndEveryBackupThatHeldIt)
{
    ASSERT_EQ(store().add(u"Dora"_s, u"06 39 98 00 20"_s, u"d@example.org"_s, u"29"_s, {}),
              std::nullopt);
    backUp();
    store().setStopped(true, *store().prospect(u"0639980020"_s));
    store().setStopped(true, alix());
    const QString list = QString::fromUtf16(DoNotContact::fileName);
    const QString before = u"%1/%2"_s.arg(desktop.folders.data(), list);
    ASSERT_TRUE(QDir().mkpath(before)); // the disk takes nothing at first
    store().deleteProspects({alix().id, u"0639980020"_s});
    ASSERT_TRUE(QDir().rmdir(before));
    store().setComment(u"plus tard"_s, chloe());
    restart();
    EXPECT_FALSE(desktop.file(list).contains("39980020"));
    EXPECT_TRUE(store().doNotContact().keys().empty()) << "an import may bring them back";
    ASSERT_EQ(restore(), std::nullopt);
    EXPECT_TRUE(store().isStopped(alix()));
    EXPECT_TRUE(store().isStopped(*store().prospect(u"0639980020"_s)));
}

TEST_F(RestoreTest, WhoWasErasedStaysSoWhateverIsKept)
{
    ASSERT_EQ(store().add(u"Dora"_s, u"06 39 98 00 20"_s, {}, u"29"_s, {}), std::nullopt);
    store().recordSentNow(*store().prospect(u"0639980020"_s));
    backUp();
    ASSERT_EQ(store().rememberErased({u"0639980020"_s}), std::nullopt);
    store().deleteProspects({u"0639980020"_s});
    for (const bool keepsAll : {true, false}) {
        ASSERT_EQ(restore(keepsAll), std::nullopt);
        EXPECT_FALSE(store().prospect(u"0639980020"_s));
        EXPECT_FALSE(desktop.file(u"suivi-envois.json"_s).contains("0639980020"));
        EXPECT_TRUE(store().doNotContact().erased().contains(u"0639980020"_s));
    }
}

TEST_F(RestoreTest, TellsWhatWouldChange)
{
    ASSERT_EQ(store().add(u"Dora"_s, u"06 39 98 00 20"_s, {}, u"29"_s, {}), std::nullopt);
    backUp();
    store().deleteProspects({u"0639980020"_s});
    ASSERT_EQ(store().add(u"Elsa"_s, u"06 39 98 00 21"_s, {}, u"29"_s, {}), std::nullopt);
    store().setComment(u"change"_s, chloe());
    store().setStopped(true, alix());
    store().recordSentNow(alix());
    store().recordEmailSentNow(alix());
    const auto told = previewRestore(path, presentState(store()), platform());
    const auto &preview = std::get<RestorePreview>(told);
    EXPECT_EQ(preview.date, desktop.clock.now());
    EXPECT_EQ(preview.contacts, 4U);
    EXPECT_EQ(preview.added, QStringList{u"DORA — AJOUT MANUEL (29)"_s});
    EXPECT_EQ(preview.removed, QStringList{u"ELSA — AJOUT MANUEL (29)"_s});
    EXPECT_EQ(preview.changed, QStringList{chloe().label});
    EXPECT_EQ(preview.stopped, QStringList{alix().label});
    EXPECT_EQ(preview.sends, 2U);
    EXPECT_TRUE(isClean());
}

/// From each act on nothing reaches the disk, as after a kill or once it is full.
TEST_F(RestoreTest, ACutAtAnyStepLeavesTheOldStateOrTheNewOne)
{
    store().recordSentNow(alix());
    backUp();
    store().setStopped(true, alix());
    ASSERT_EQ(store().addToDoNotContact({u"0639980031"_s}), std::nullopt);
    store().setComment(u"depuis"_s, chloe());
    const Files old = files();
    Files restored;
    for (int step = 0; restored.empty(); ++step) {
        ASSERT_LT(step, 100);
        disk.left = step;
        std::ignore = restore();
        const bool isDecided = QFile::exists(restoreFolder(desktop.folders.data()) + u"/decidee"_s);
        disk.left = 1000;
        ASSERT_EQ(startAgain(), std::nullopt);
        EXPECT_TRUE(isClean()) << step;
        if (isDecided)
            restored = files();
        else
            EXPECT_EQ(files(), old) << step;
    }
    EXPECT_TRUE(store().isStopped(alix()));
    EXPECT_TRUE(desktop.file(u"numeros-a-ne-pas-contacter.json"_s).contains("0639980031"));
    EXPECT_FALSE(desktop.file(u"suivi-envois.json"_s).contains("depuis"));
}

TEST_F(RestoreTest, AMoveThatWasCutGoesOnAtTheNextStart)
{
    backUp();
    store().setComment(u"depuis"_s, chloe());
    ASSERT_EQ(restore(), std::nullopt);
    const Files restored = files();
    for (int moves = 0; moves < 12; ++moves) {
        store().setComment(u"encore"_s, chloe());
        ASSERT_EQ(prepare(), std::nullopt);
        ASSERT_EQ(decideRestore(platform()), std::nullopt);
        disk.left = moves;
        EXPECT_EQ(startAgain(), u"plein"_s);
        disk.left = 1000;
        EXPECT_EQ(startAgain(), std::nullopt);
        EXPECT_EQ(files(), restored) << moves;
    }
}

struct Hostile {
    const char *name;
    std::function<void(Packages::Members &)> make;
    std::function<void(QByteArray &)> patch = {};
    const char16_t *told;
};

class HostileArchive : public RestoreTest, public testing::WithParamInterface<Hostile> {};

TEST_P(HostileArchive, IsRefusedAndChangesNothing)
{
    const Packages packages;
    Packages::Members members;
    store();
    std::vector<QByteArray> names;
    for (const BackedUpFile &each : backedUpFiles())
        names.push_back(each.name.toUtf8());
    for (const QByteArray &name : names)
        members.emplace_back(name.constData(), desktop.file(QString::fromUtf8(name)));
    members.pop_back();
    members.front().second = "[]";
    GetParam().make(members);
    path = packages.package(members);
    if (GetParam().patch) {
        QFile file(path);
        ASSERT_TRUE(file.open(QFile::ReadWrite));
        QByteArray bytes = file.readAll();
        GetParam().patch(bytes);
        file.resize(0);
        file.seek(0);
        file.write(bytes);
    }
    const Files before = files();
    EXPECT_EQ(prepare(), QString::fromUtf16(GetParam().told));
    EXPECT_EQ(files(), before);
    EXPECT_TRUE(isClean());
}

constexpr const char16_t *foreign = u"Ce fichier n’est pas une sauvegarde de Quenoria.";
constexpr const char16_t *damaged =
    u"Cette sauvegarde est endommagée : elle n’a pas pu être lue en entier.";

void patchDirectory(QByteArray &bytes, qsizetype offset, const QByteArray &value)
{
    bytes.replace(bytes.indexOf("PK\x01\x02") + offset, value.size(), value);
}

INSTANTIATE_TEST_SUITE_P(
    Archives, HostileArchive,
    testing::Values(
        Hostile{"noArchive", [](auto &) {}, [](QByteArray &bytes) { bytes = "zip"; }, foreign},
        Hostile{"cutOff", [](auto &) {}, [](QByteArray &bytes) { bytes.chop(200); }, foreign},
        Hostile{"pathTraversal",
                [](auto &members) { members[1].first = "../suivi-envois.json"; },
                {},
                foreign},
        Hostile{"foreignName",
                [](auto &members) { members[0].first = ".envoi-en-cours"; },
                {},
                foreign},
        Hostile{"withoutSends",
                [](auto &members) { members.erase(members.begin() + 1); },
                {},
                u"Cette sauvegarde est incomplète : il y manque « suivi-envois.json »."},
        Hostile{"noJson",
                [](auto &members) { members[2].second = "{"; },
                {},
                u"Cette sauvegarde est endommagée : un de ses fichiers n’a pas pu être lu."},
        Hostile{"otherBytes", [](auto &members) { members[2].second = QByteArray(99, '['); },
                [](QByteArray &bytes) { patchDirectory(bytes, 16, "abcd"); }, damaged},
        Hostile{"declaredShorter", [](auto &members) { members[0].second = QByteArray(5000, ' '); },
                [](QByteArray &bytes) { patchDirectory(bytes, 24, QByteArray("\x09\0\0\0", 4)); },
                damaged},
        Hostile{"bomb", [](auto &) {},
                [](QByteArray &bytes) { patchDirectory(bytes, 24, "\xF0\xFF\xFF\x7F"); },
                u"Cette sauvegarde est trop volumineuse pour être lue."}),
    [](const auto &hostile) { return hostile.param.name; });

} // namespace
