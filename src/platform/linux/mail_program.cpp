#include "platform/linux/mail_program.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

bool msmtpIsConfigured()
{
    const QString settings =
        QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    const QStringList files{QDir::home().filePath(u".msmtprc"_s), settings + u"/msmtp/config"_s,
                            u"/etc/msmtprc"_s};
    return std::ranges::any_of(files, [](const QString &file) { return QFileInfo(file).isFile(); });
}

QString sendmail()
{
    const QString inPath = QStandardPaths::findExecutable(u"sendmail"_s);
    return inPath.isEmpty()
               ? QStandardPaths::findExecutable(u"sendmail"_s, {u"/usr/sbin"_s, u"/usr/lib"_s})
               : inPath;
}

} // namespace

std::optional<QString> mailProgram()
{
    const QString msmtp = QStandardPaths::findExecutable(u"msmtp"_s);
    if (!msmtp.isEmpty() && msmtpIsConfigured())
        return msmtp;
    // A sendmail that is msmtp under another name needs the same configuration.
    const QString program = sendmail();
    if (program.isEmpty() || QFileInfo(program).canonicalFilePath().endsWith(u"/msmtp"_s))
        return std::nullopt;
    return program;
}

} // namespace quenoria
