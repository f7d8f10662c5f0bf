#include "platform/linux/applications.h"

#include <gio/gio.h>

#include <memory>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

struct Unreference {
    void operator()(gpointer object) const { g_object_unref(object); }
};
using Application = std::unique_ptr<GAppInfo, Unreference>;

Application registeredFor(const QString &scheme)
{
    return Application(g_app_info_get_default_for_uri_scheme(scheme.toUtf8()));
}

} // namespace

std::optional<QString> applicationFor(const QString &scheme)
{
    const Application application = registeredFor(scheme);
    if (!application)
        return std::nullopt;
    QString id = QString::fromUtf8(g_app_info_get_id(application.get()));
    if (id.endsWith(u".desktop"_s))
        id.chop(8);
    return id;
}

bool openInApplication(const QUrl &url)
{
    const Application application = registeredFor(url.scheme());
    if (!application)
        return false;
    QByteArray address = url.toEncoded();
    GList addresses{address.data(), nullptr, nullptr};
    return g_app_info_launch_uris(application.get(), &addresses, nullptr, nullptr);
}

} // namespace quenoria
