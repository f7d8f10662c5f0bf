#include "platform/linux/linux_workspace.h"

#include "platform/linux/applications.h"
#include "platform/qt/main_window.h"

#include <QUrlQuery>

using namespace Qt::StringLiterals;

namespace quenoria {

bool LinuxWorkspace::openUrl(const QUrl &url)
{
    if (openInApplication(url))
        return true;
    if (url.scheme() != u"sms"_s || m_carriers.chosen().isEmpty())
        return false;
    const QString body = QUrlQuery(url).queryItemValue(u"body"_s, QUrl::FullyDecoded);
    Q_EMIT m_carriers.composeRequested({{url.path(QUrl::FullyDecoded)}, {}, body, {}});
    return true;
}

std::optional<QString> LinuxWorkspace::defaultApplication(const QUrl &url) const
{
    if (url.scheme() == u"mailto"_s && m_mail.isSetUp())
        return u"com.apple.mail"_s;
    return applicationFor(url.scheme());
}

/// What sends here has no window.
void LinuxWorkspace::hideApplications(const QString & /*bundleIdentifier*/) {}

void LinuxWorkspace::comeToFront() { bringMainWindowToFront(); }

} // namespace quenoria
