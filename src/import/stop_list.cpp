#include "import/stop_list.h"

#include "import/contact_cells.h"
#include "import/excel_workbook_reader.h"
#include "import/import_error.h"
#include "import/reader_limits.h"
#include "platform/system_reason.h"
#include "store/prospect_store.h"

#include <QFile>
#include <QFileInfo>
#include <QStringDecoder>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

constexpr ReaderLimit textBytes{64 * readerLimits::mebi,
                                u"Le fichier est trop volumineux pour une liste STOP."};
constexpr ReaderLimit entries{1'000'000,
                              u"La liste compte plus d’un million de numéros et d’adresses."};
constexpr qsizetype longestAddress = 320;
constexpr std::string_view fieldEnds = "\n\r\t;,|\"";
constexpr std::string_view wordEnds = " <>()[]";

const QString unsupportedFormat = u"Choisissez un fichier .csv, .xlsx ou .txt."_s;
const QString noText = u"Le fichier n’est pas un texte."_s;

template <typename Visit>
void forEachPart(std::string_view text, std::string_view ends, Visit &&visit)
{
    while (!text.empty()) {
        const std::size_t end = std::min(text.find_first_of(ends), text.size());
        if (end > 0)
            visit(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
}

void takeAddresses(std::string_view word, StopList &list)
{
    QString rest = QString::fromUtf8(word.data(), qsizetype(word.size())).toLower();
    while (const auto address = emailIn(rest.toStdString())) {
        if (address->size() <= longestAddress)
            list.keys.insert(u"email:"_s + *address);
        rest = rest.sliced(rest.indexOf(*address) + address->size());
        while (rest.startsWith(u'/')) // which an address may begin with, but parts two here
            rest.remove(0, 1);
    }
}

/// The text without the zero in brackets that nobody dials after a prefix.
std::string withoutTrunkZero(std::string_view text)
{
    constexpr std::string_view zero = "(0)";
    std::string kept(text);
    for (std::size_t at = kept.find(zero); at != std::string::npos; at = kept.find(zero, at))
        kept.erase(at, zero.size());
    return kept;
}

void takeNumbers(std::string_view text, StopList &list)
{
    const std::string field = withoutTrunkZero(text);
    const std::vector<QString> several = mobilesWithin(field);
    list.keys.insert(several.begin(), several.end());
    if (const auto mobile = mobileIn(field))
        list.keys.insert(*mobile);
    else if (const auto other = several.empty() ? numberIn(field) : std::nullopt)
        list.otherNumbers.insert(*other);
}

struct StopCells : WorkbookSink {
    StopList list;
    std::stop_token stop;

    void beginSheet() override {}
    void row(const WorksheetRow &row) override
    {
        if (stop.stop_requested())
            throw ImportAbandoned();
        for (const WorksheetCell &cell : row.cells())
            takeStops(cell.text, list);
    }
};

StopList readWorkbook(const QString &path, const ImportWatch &watch)
{
    StopCells cells;
    cells.stop = watch.stop;
    ExcelWorkbookReader::readSheets(path, cells, watch);
    return std::move(cells.list);
}

/// What another program wrote as UTF-8, UTF-16 with its mark, or in an encoding of one byte each.
std::string decoded(const QByteArray &bytes)
{
    const auto marked = QStringConverter::encodingForData(bytes);
    if (marked && *marked != QStringConverter::Utf8) {
        QStringDecoder decode(*marked);
        return QString(decode(bytes)).toStdString();
    }
    return bytes.isValidUtf8() ? bytes.toStdString() : QString::fromLatin1(bytes).toStdString();
}

StopList readText(const QString &path, const ImportWatch &watch)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw ReaderError(systemReason(file.errorString()));
    textBytes.check(std::uint64_t(file.size()));
    const std::string text = decoded(file.read(qint64(textBytes.most)));
    if (text.find('\0') != std::string::npos)
        throw ReaderError(noText);
    StopList list;
    forEachPart(text, "\n\r", [&](std::string_view line) {
        if (watch.stop.stop_requested())
            throw ImportAbandoned();
        takeStops(line, list);
    });
    return list;
}

/// The number of a contact as a STOP list would give it, empty when it has none.
QString numberOf(const Prospect &contact)
{
    const std::string phone = contact.phone.toStdString();
    return mobileIn(phone).value_or(numberIn(phone).value_or(QString()));
}

} // namespace

void takeStops(std::string_view text, StopList &list)
{
    forEachPart(text, fieldEnds, [&list](std::string_view field) {
        takeNumbers(field, list);
        if (field.find('@') != std::string_view::npos)
            forEachPart(field, wordEnds,
                        [&list](std::string_view word) { takeAddresses(word, list); });
    });
    entries.check(list.keys.size() + list.otherNumbers.size());
}

StopList readStopList(const QString &path, const ImportWatch &watch)
{
    const QString suffix = QFileInfo(path).suffix().toLower();
    try {
        if (suffix == u"xlsx"_s)
            return readWorkbook(path, watch);
        if (suffix == u"csv"_s || suffix == u"txt"_s)
            return readText(path, watch);
    } catch (const std::bad_alloc &) {
        throw OutOfMemory();
    }
    throw ReaderError(unsupportedFormat);
}

StopMatches matchStops(const StopList &list, const ProspectStore &store)
{
    StopMatches matches;
    matches.unknown = list.keys;
    for (const Prospect &contact : store.allProspects()) {
        const QString number = numberOf(contact);
        const QString address = u"email:"_s + contact.email.value_or(QString()).toLower();
        if (!list.keys.contains(number) && !list.otherNumbers.contains(number) &&
            !list.keys.contains(address))
            continue;
        matches.unknown.erase(number);
        matches.unknown.erase(address);
        (store.isStopped(contact) ? matches.alreadyStopped : matches.contacts).insert(contact.id);
    }
    return matches;
}

} // namespace quenoria
