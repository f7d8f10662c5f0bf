#include "platform/qt/built_in_resources.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace quenoria {

std::optional<QByteArray> BuiltInResources::read(const QString &name, const QString &suffix) const
{
    QFile file(u":/resources/%1.%2"_s.arg(name, suffix));
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    return file.readAll();
}

} // namespace quenoria
