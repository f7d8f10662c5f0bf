#pragma once

#include "platform/platform.h"
#include "platform/posix/whole_file_writer.h"
#include "support/fake_clock.h"
#include "support/readable.h"

#include <QTemporaryDir>

#include <functional>
#include <map>

namespace quenoria::test {

struct MemoryPreferences : Preferences {
    std::map<QString, bool> flags;
    std::map<QString, QString> texts;

    std::optional<bool> flag(const QString &key) const override;
    std::optional<QString> text(const QString &key) const override;
    std::optional<QString> refusal; ///< of every store, while it is there
    std::optional<QString> lost;
    std::function<void()> tried;

    void setFlag(const QString &key, bool value) override
    {
        flags[key] = value;
        save();
    }
    std::optional<QString> unsaved() const override { return lost; }
    void save() override
    {
        lost = refusal;
        if (tried)
            tried();
    }
    void watch(std::function<void()> function) override { tried = std::move(function); }
    void setText(const QString &key, const QString &value) override
    {
        texts[key] = value;
        save();
    }
};

struct TemporaryFolders : Folders {
    QTemporaryDir root;

    QString data() const override { return root.filePath(QStringLiteral("a/%1 %2 50%3")); }
};

/// Keeps every script and answers with the outcome that the test prepared.
struct RecordingScripts : ScriptHost {
    QStringList sources;
    std::function<ScriptOutcome(const QString &)> answer = [](const QString &) {
        return ScriptDone{};
    };

    ScriptOutcome run(const QString &source) override;
};

struct RecordingWorkspace : Workspace {
    QList<QUrl> opened;
    QStringList hidden;
    int fronts = 0;
    bool accepts = true;
    std::optional<QString> mailApplication;

    bool openUrl(const QUrl &url) override;
    std::optional<QString> defaultApplication(const QUrl &) const override
    {
        return mailApplication;
    }
    void hideApplications(const QString &bundleIdentifier) override { hidden << bundleIdentifier; }
    void comeToFront() override { ++fronts; }
};

struct RecordingCompose : ComposeService {
    bool accepts = true;
    std::vector<Composition> performed;

    bool canPerform(const Composition &) const override { return accepts; }
    void perform(const Composition &composition) override { performed.push_back(composition); }
};

struct RecordingSharing : SharingServices {
    bool present = true;
    RecordingCompose message;
    RecordingCompose email;

    ComposeService *composeMessage() override { return present ? &message : nullptr; }
    ComposeService *composeEmail() override { return present ? &email : nullptr; }
};

struct RecordingPasteboard : Pasteboard {
    QString content;

    void setText(const QString &text) override { content = text; }
};

struct ScriptedPanels : FilePanels {
    std::optional<QString> answer;
    std::vector<OpenPanel> opened;
    std::vector<SavePanel> saved;

    std::optional<QString> chooseFile(const OpenPanel &panel) override;
    std::optional<QString> chooseDestination(const SavePanel &panel) override;
};

struct MemoryResources : Resources {
    std::map<QString, QByteArray> files; ///< by "name.suffix"

    std::optional<QByteArray> read(const QString &name, const QString &suffix) const override;
};

struct RecordingLog : SystemLog {
    QStringList lines;

    void write(const QString &line) override { lines << line; }
};

/// The real writer, on a disk that the test can fill.
struct Disk : WholeFileWriter {
    std::optional<QString> refusal; ///< of every write, while it is there

    std::optional<QString> writePieces(const QString &path, const GivePieces &give) override
    {
        return refusal ? refusal : WholeFileWriter::writePieces(path, give);
    }
};

/// A mailbox whose keyring and server answer what the test prepared.
struct RecordingMailbox : Mailbox {
    PasswordPlace place = PasswordPlace::nowhere;
    PasswordPlace placeOfNew = PasswordPlace::keyring;
    TransportResult testResult;
    std::optional<QString> problem; ///< of the last copy
    std::optional<QString> program;
    QStringList passwords;
    int tests = 0;

    bool isFixed() const override { return false; }
    std::optional<QString> otherRoad() const override { return program; }
    QFuture<PasswordPlace> findPassword() override { return QtFuture::makeReadyFuture(place); }
    QFuture<PasswordPlace> setPassword(const QString &password) override;
    QFuture<TransportResult> sendTest() override;
    QFuture<std::optional<QString>> copyProblem() override
    {
        return QtFuture::makeReadyFuture(problem);
    }
};

/// Carriers that a test puts there; keeps what it was asked to do.
struct FakeCarriers : Carriers {
    std::vector<Carrier> carriers;
    QString choice;
    bool files = true;
    bool fixed = false;
    TransportResult answer;
    std::vector<Composition> sent;
    QStringList pins;
    PinUse pinUse = PinUse::once;
    MayRead mayRead;

    void watch() override {}
    std::vector<Carrier> found() const override { return carriers; }
    QString chosen() const override { return choice; }
    void choose(const QString &id) override;
    bool takesFiles() const override { return files; }
    QString handover() const override { return QStringLiteral("remis au modem"); }
    bool isFixed() const override { return fixed; }
    void unlock(const QString &, const QString &pin, PinUse use) override
    {
        pins << pin;
        pinUse = use;
    }
    void forgetPin(const QString &) override { pins.clear(); }
    QFuture<TransportResult> send(const Composition &message) override;
    void listen(const MayRead &question) override { mayRead = question; }
};

/// A whole desktop that records what it was asked for.
struct FakeDesktop {
    FakeClock clock;
    MemoryPreferences preferences;
    TemporaryFolders folders;
    RecordingScripts scripts;
    RecordingWorkspace workspace;
    RecordingSharing sharing;
    RecordingPasteboard pasteboard;
    ScriptedPanels panels;
    MemoryResources resources;
    RecordingLog log;
    Disk files;
    HandOverProgress handOver;
    RecordingMailbox mailbox;
    FakeCarriers carriers;

    Platform platform();

    /// Content of a file of the data folder, or a null array when there is none.
    QByteArray file(const QString &name) const;

    /// Writes a file of the data folder, as another program would have left it.
    void writeFile(const QString &name, const QByteArray &content) const;
};

} // namespace quenoria::test
