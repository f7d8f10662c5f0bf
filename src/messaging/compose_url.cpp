#include "messaging/compose_url.h"

namespace quenoria {

QUrl composeUrl(const QString &scheme, const QString &path, std::span<const QueryItem> items)
{
    QByteArray encoded = scheme.toLatin1() + ':' + QUrl::toPercentEncoding(path, "@+");
    char separator = '?';
    for (const auto &[name, value] : items) {
        encoded += separator + name.toLatin1() + '=' + QUrl::toPercentEncoding(value);
        separator = '&';
    }
    return QUrl::fromEncoded(encoded, QUrl::StrictMode);
}

} // namespace quenoria
