#include "import/workbook_package.h"

#include "import/import_error.h"
#include "model/text_order.h"

#include <QFile>

#include <zip.h>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

const QString unreadableWorkbook =
    u"Le fichier Excel n’a pas pu être lu. Vérifiez qu’il n’est pas endommagé."_s;
const QString tooLarge = u"Le fichier Excel est trop volumineux pour être importé."_s;

/// Twice what the fullest worksheet of seven columns takes. An archive of a few kilobytes can
/// declare any size, and reading is what costs.
constexpr std::uint64_t mostBytes = 512ULL * 1024 * 1024;

bool precedes(const WorkbookPackage::Part &a, const WorkbookPackage::Part &b)
{
    const int order = finderOrder().compare(a.name, b.name);
    return order != 0 ? order < 0 : a.name < b.name;
}

} // namespace

WorkbookPackage::WorkbookPackage(const QString &path, const ImportWatch &watch)
    : m_archive(zip_open(QFile::encodeName(path).constData(), ZIP_RDONLY, nullptr), &zip_discard),
      m_watch(watch)
{
    if (!m_archive)
        throw ReaderError(unreadableWorkbook);
    for (auto &[name, part] : members())
        keep(name, std::move(part));
    if (m_worksheets.empty())
        throw ReaderError(unreadableWorkbook);
    std::ranges::sort(m_worksheets, &precedes);
}

/// By path. Of several members with one path the last counts, as it would on a disk.
std::map<QString, WorkbookPackage::Part> WorkbookPackage::members() const
{
    std::map<QString, Part> members;
    const zip_int64_t count = zip_get_num_entries(m_archive.get(), 0);
    for (zip_uint64_t index = 0; index < zip_uint64_t(count); ++index) {
        zip_stat_t entry;
        if (zip_stat_index(m_archive.get(), index, 0, &entry) != 0)
            throw ReaderError(unreadableWorkbook);
        const QString name = QString::fromUtf8(entry.name);
        members[name] = Part{name, index, entry.size};
    }
    return members;
}

void WorkbookPackage::keep(const QString &name, Part part)
{
    const QString folder = u"xl/worksheets/"_s;
    const QString file = name.startsWith(folder) ? name.sliced(folder.size()) : QString();
    const bool isWorksheet = file.endsWith(u".xml", Qt::CaseInsensitive) && !file.contains(u'/') &&
                             !file.startsWith(u'.');
    if (!isWorksheet && name != u"xl/sharedStrings.xml")
        return;
    if (part.size > mostBytes - m_size)
        throw ReaderError(tooLarge);
    m_size += part.size;
    if (isWorksheet)
        m_worksheets.push_back(std::move(part));
    else
        m_sharedStrings = std::move(part);
}

ByteSource WorkbookPackage::open(const Part &part)
{
    const std::shared_ptr<zip_file_t> file(zip_fopen_index(m_archive.get(), part.index, 0),
                                           [](zip_file_t *opened) {
                                               if (opened)
                                                   zip_fclose(opened);
                                           });
    if (!file)
        throw ReaderError(unreadableWorkbook);
    return [this, file](std::span<char> buffer) {
        const zip_int64_t count = zip_fread(file.get(), buffer.data(), buffer.size());
        if (count < 0)
            throw ReaderError(unreadableWorkbook);
        advance(std::uint64_t(count));
        return std::size_t(count);
    };
}

void WorkbookPackage::advance(std::uint64_t bytes)
{
    m_read += bytes;
    if (m_read > m_size)
        throw ReaderError(unreadableWorkbook); // a part is longer than declared
    if (m_watch.stop.stop_requested())
        throw ImportAbandoned();
    if (m_watch.progress)
        m_watch.progress(double(m_read) / double(m_size));
}

} // namespace quenoria
