#include "support/fake_desktop.h"

#include <QDir>
#include <QFile>

namespace quenoria::test {

namespace {

template <typename Value>
std::optional<Value> lookUp(const std::map<QString, Value> &values, const QString &key)
{
    const auto found = values.find(key);
    return found == values.end() ? std::nullopt : std::optional(found->second);
}

} // namespace

std::optional<bool> MemoryPreferences::flag(const QString &key) const { return lookUp(flags, key); }

std::optional<QString> MemoryPreferences::text(const QString &key) const
{
    return lookUp(texts, key);
}

ScriptOutcome RecordingScripts::run(const QString &source)
{
    sources << source;
    return answer(source);
}

bool RecordingWorkspace::openUrl(const QUrl &url)
{
    opened << url;
    return accepts;
}

std::optional<QString> ScriptedPanels::chooseFile(const OpenPanel &panel)
{
    opened.push_back(panel);
    return answer;
}

std::optional<QString> ScriptedPanels::chooseDestination(const SavePanel &panel)
{
    saved.push_back(panel);
    return answer;
}

std::optional<QByteArray> MemoryResources::read(const QString &name, const QString &suffix) const
{
    return lookUp(files, name + u'.' + suffix);
}

QFuture<PasswordPlace> RecordingMailbox::setPassword(const QString &password)
{
    passwords << password;
    place = placeOfNew;
    return QtFuture::makeReadyFuture(place);
}

QFuture<TransportResult> RecordingMailbox::sendTest()
{
    ++tests;
    return QtFuture::makeReadyFuture(testResult);
}

void FakeCarriers::choose(const QString &id)
{
    choice = id;
    Q_EMIT changed();
}

QFuture<TransportResult> FakeCarriers::send(const Composition &message)
{
    sent.push_back(message);
    return QtFuture::makeReadyFuture(answer);
}

Platform FakeDesktop::platform()
{
    return {clock,  preferences, folders, scripts, workspace, sharing, pasteboard,
            panels, resources,   log,     files,   handOver,  mailbox, carriers};
}

QByteArray FakeDesktop::file(const QString &name) const
{
    QFile source(QDir(folders.data()).filePath(name));
    return source.open(QIODevice::ReadOnly) ? source.readAll() : QByteArray();
}

void FakeDesktop::writeFile(const QString &name, const QByteArray &content) const
{
    QDir().mkpath(folders.data());
    QFile target(QDir(folders.data()).filePath(name));
    if (!target.open(QIODevice::WriteOnly) || target.write(content) != content.size())
        qFatal("a fixture could not be written");
}

} // namespace quenoria::test
