#include "import/workbook_package.h"

#include "import/reader_limits.h"
#include "model/text_order.h"

#include <algorithm>
#include <unordered_set>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

const QString unknownCompression =
    u"Le fichier Excel est compressé d’une façon que l’import ne sait pas lire."_s;
const QString repeatedPart = u"Le fichier Excel contient deux parties du même nom."_s;

/// "\\XL\\.\\Worksheets\\sheet1.xml" -> "XL/Worksheets/sheet1.xml"; empty for a folder, or a path
/// that leads out of one.
QString partName(const char *member)
{
    const QString path = QString::fromUtf8(member).replace(u'\\', u'/');
    QStringList names = path.split(u'/', Qt::SkipEmptyParts);
    names.removeAll(u"."_s);
    return path.endsWith(u'/') || names.contains(u".."_s) ? QString() : names.join(u'/');
}

bool precedes(const WorkbookPackage::Part &a, const WorkbookPackage::Part &b)
{
    const int order = finderOrder().compare(a.name, b.name);
    return order != 0 ? order < 0 : a.name < b.name;
}

} // namespace

WorkbookPackage::WorkbookPackage(const QString &path, const ImportWatch &watch)
    : m_file(path, watch.stop), m_archive(m_file.openArchive(), &zip_discard), m_watch(watch)
{
    findParts();
    if (m_worksheets.empty())
        throw UnreadableWorkbook();
    std::ranges::sort(m_worksheets, &precedes);
}

void WorkbookPackage::findParts()
{
    const auto count = zip_uint64_t(zip_get_num_entries(m_archive.get(), 0));
    readerLimits::parts.check(count);
    std::unordered_set<QString> names;
    for (zip_uint64_t index = 0; index < count; ++index) {
        zip_stat_t entry;
        if (zip_stat_index(m_archive.get(), index, 0, &entry) != 0)
            throw UnreadableWorkbook();
        const QString name = partName(entry.name);
        if (name.isEmpty())
            continue;
        const QString folded = name.toCaseFolded();
        if (!names.insert(folded).second)
            throw ReaderError(repeatedPart);
        keep(entry, {name, index, entry.size});
    }
}

void WorkbookPackage::keep(const zip_stat_t &entry, Part part)
{
    const QString name = part.name.toCaseFolded();
    const QString folder = u"xl/worksheets/"_s;
    const QString file = name.startsWith(folder) ? name.sliced(folder.size()) : QString();
    const bool isWorksheet =
        file.endsWith(u".xml"_s) && !file.contains(u'/') && !file.startsWith(u'.');
    if (!isWorksheet && name != u"xl/sharedstrings.xml"_s)
        return;
    if (entry.comp_method != ZIP_CM_STORE && entry.comp_method != ZIP_CM_DEFLATE)
        throw ReaderError(unknownCompression);
    readerLimits::inflatedBytes.check(part.size);
    m_size += part.size;
    readerLimits::inflatedBytes.check(m_size);
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
        m_file.fail();
    return [this, file, left = part.size](std::span<char> buffer) mutable {
        const zip_int64_t count = zip_fread(file.get(), buffer.data(), buffer.size());
        if (count < 0)
            m_file.fail();
        if (std::uint64_t(count) > left) // longer than declared
            throw UnreadableWorkbook();
        left -= std::uint64_t(count);
        advance(std::uint64_t(count));
        return std::size_t(count);
    };
}

void WorkbookPackage::advance(std::uint64_t bytes)
{
    m_read += bytes;
    if (m_watch.stop.stop_requested())
        throw ImportAbandoned();
    if (m_watch.progress)
        m_watch.progress(m_size == 0 ? 1.0 : double(m_read) / double(m_size));
}

} // namespace quenoria
