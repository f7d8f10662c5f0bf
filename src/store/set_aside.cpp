#include "store/set_aside.h"

#include "model/instant.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace quenoria {

QStringList setAside(const Platform &platform, const QString &path)
{
    const QFileInfo info(path);
    const bool isJson = info.suffix() == u"json"_s;
    const QString suffix = isJson ? u".json"_s : QString();
    const QString stem = info.fileName().chopped(suffix.size()) + u".illisible-"_s +
                         QString::fromLatin1(instantText(platform.clock.now())).replace(u':', u'-');
    QString aside = info.dir().filePath(stem + suffix);
    for (int copy = 2; QFileInfo::exists(aside); ++copy) // a renaming never replaces a file
        aside = info.dir().filePath(stem + u'-' + QString::number(copy) + suffix);
    if (!QFile::rename(path, aside)) {
        platform.log.write(u"Fichier illisible, impossible à mettre de côté : "_s + path);
        return {};
    }
    platform.log.write(
        u"Fichier illisible mis de côté : %1, conservé sous %2"_s.arg(info.fileName(), aside));
    return {aside};
}

} // namespace quenoria
