#include "platform/demo/demo_workspace.h"

#include "platform/qt/main_window.h"

#include <QDesktopServices>
#include <QUrlQuery>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

QString item(const QUrl &url, const QString &name)
{
    const QString value = QUrlQuery(url).queryItemValue(name, QUrl::FullyDecoded);
    return QString(value).replace(u"\r\n"_s, u"\n"_s);
}

} // namespace

bool DemoWorkspace::openUrl(const QUrl &url)
{
    const QString recipient = url.path(QUrl::FullyDecoded);
    const QString body = item(url, u"body"_s);
    if (url.scheme() == u"sms"_s)
        return !m_outbox.file(FiledSms{u"SMS préparé"_s, recipient, body, {}});
    if (url.scheme() == u"mailto"_s)
        return !m_outbox.file(
            OutgoingMessage{true, item(url, u"subject"_s), body, {recipient}, {}});
    return QDesktopServices::openUrl(url);
}

std::optional<QString> DemoWorkspace::defaultApplication(const QUrl & /*url*/) const
{
    return u"com.apple.mail"_s;
}

/// The demonstration's Messages has no window.
void DemoWorkspace::hideApplications(const QString & /*bundleIdentifier*/) {}

void DemoWorkspace::comeToFront() { bringMainWindowToFront(); }

} // namespace quenoria
