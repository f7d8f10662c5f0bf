#pragma once

#include <QDir>
#include <QTemporaryDir>

#include <zip.h>

#include <vector>

namespace quenoria::test {

inline QString testData(const QString &path)
{
    return QStringLiteral(QUENORIA_TEST_DATA "/") + path;
}

/// Paths of the workbooks in a folder of the test data.
inline QStringList workbooks(const QString &folder)
{
    QStringList paths;
    for (const QFileInfo &file : QDir(testData(folder)).entryInfoList({QStringLiteral("*.xlsx")}))
        paths << file.filePath();
    return paths;
}

/// The lines of a table of the test data, cut at their tabs.
inline std::vector<QStringList> dataTable(const QString &path)
{
    QFile file(testData(path));
    file.open(QFile::ReadOnly);
    std::vector<QStringList> rows;
    while (!file.atEnd())
        rows.push_back(QString::fromUtf8(file.readLine().chopped(1)).split(u'\t'));
    return rows;
}

inline QByteArray worksheet(const QByteArray &rows)
{
    return "<worksheet><sheetData>" + rows + "</sheetData></worksheet>";
}

/// Workbooks that a test makes up.
class Packages {
public:
    using Members = std::vector<std::pair<const char *, QByteArray>>;

    QString package(const Members &members, const QString &name = QStringLiteral("c.xlsx")) const
    {
        const QString path = m_folder.filePath(name);
        zip_t *archive = zip_open(path.toUtf8().constData(), ZIP_CREATE | ZIP_TRUNCATE, nullptr);
        for (const auto &[member, content] : members) {
            const auto size = zip_uint64_t(content.size());
            zip_file_add(archive, member, zip_source_buffer(archive, content.constData(), size, 0),
                         0);
        }
        zip_close(archive);
        return path;
    }

private:
    QTemporaryDir m_folder;
};

} // namespace quenoria::test
