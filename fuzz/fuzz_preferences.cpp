// Any bytes as the preferences' file, and as a value that is set and read again.

#include "platform/posix/whole_file_writer.h"
#include "platform/qt/settings_preferences.h"

#include <QFile>
#include <QTemporaryDir>

#include <cstdlib>

using namespace quenoria;

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, std::size_t size)
{
    static const QTemporaryDir folder;
    static WholeFileWriter writer;
    const QByteArray bytes(reinterpret_cast<const char *>(data), qsizetype(size));
    const QString path = folder.filePath(QStringLiteral("preferences.ini"));
    QFile file(path);
    file.open(QFile::WriteOnly);
    file.write(bytes);
    file.close();

    const QString key = QStringLiteral("key");
    const QString value = QString::fromUtf8(bytes);
    SettingsPreferences preferences(path, writer);
    (void)preferences.flag(key);
    preferences.setText(key, value);
    if (!preferences.unsaved() && SettingsPreferences(path, writer).text(key) != value)
        std::abort();
    return 0;
}
