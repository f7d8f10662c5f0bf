#pragma once

#include <QDir>
#include <QTemporaryDir>

#include <zip.h>

#include <vector>

namespace quenoria::test {

struct Member {
    const char *name;
    QByteArray content;
};

/// The lines of a table of the test data, cut at their tabs.
inline std::vector<QList<QByteArray>> dataTable(const QString &name)
{
    QFile file(QStringLiteral(QUENORIA_TEST_DATA "/") + name);
    file.open(QFile::ReadOnly);
    std::vector<QList<QByteArray>> rows;
    while (!file.atEnd())
        rows.push_back(file.readLine().chopped(1).split('\t'));
    return rows;
}

inline QByteArray worksheet(const QByteArray &rows)
{
    return "<worksheet><sheetData>" + rows + "</sheetData></worksheet>";
}

/// Workbooks that a test makes up.
class Packages {
public:
    QString file(const QByteArray &bytes, const QString &name = QStringLiteral("c.xlsx")) const
    {
        QFile target(m_folder.filePath(name));
        target.open(QFile::WriteOnly);
        target.write(bytes);
        return target.fileName();
    }

    QString package(const std::vector<Member> &members) const
    {
        const QString path = file({});
        zip_t *archive = zip_open(path.toUtf8().constData(), ZIP_CREATE | ZIP_TRUNCATE, nullptr);
        for (const auto &[name, content] : members) {
            zip_source_t *source =
                zip_source_buffer(archive, content.constData(), zip_uint64_t(content.size()), 0);
            zip_file_add(archive, name, source, ZIP_FL_ENC_UTF_8);
        }
        zip_close(archive);
        return path;
    }

    QByteArray bytes(const std::vector<Member> &members) const
    {
        QFile source(package(members));
        source.open(QFile::ReadOnly);
        return source.readAll();
    }

private:
    QTemporaryDir m_folder;
};

} // namespace quenoria::test
