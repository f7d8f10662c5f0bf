#include "import/worksheet_xml_parser.h"

#include "import/reader_limits.h"

#include <charconv>
#include <optional>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

const QString impossibleColumn =
    u"Le fichier Excel contient une cellule au-delà de la dernière colonne possible (XFD)."_s;

/// Position in a table of the given size, written in base 10 with an optional sign.
std::optional<std::size_t> tableIndex(std::string_view text, std::size_t size)
{
    if (text.starts_with('+') && !text.starts_with("+-"))
        text.remove_prefix(1);
    long long index = 0;
    const char *end = text.data() + text.size();
    const auto [last, error] = std::from_chars(text.data(), end, index);
    if (error != std::errc() || last != end || index < 0 || std::size_t(index) >= size)
        return std::nullopt;
    return std::size_t(index);
}

bool isNamedR(const char *attribute) { return attribute[0] == 'r' && attribute[1] == '\0'; }

void append(std::string &collected, std::string_view text)
{
    readerLimits::cellBytes.check(collected.size() + text.size());
    collected += text;
}

} // namespace

std::size_t columnIndex(std::string_view reference)
{
    constexpr std::size_t alphabet = 26;
    std::size_t number = 0;
    for (const char c : reference) {
        if (c < 'A' || c > 'Z')
            continue;
        number = number * alphabet + std::size_t(c - 'A') + 1;
        if (number > columnLimit)
            return columnLimit;
    }
    return number == 0 ? 0 : number - 1;
}

void WorksheetXMLParser::parse(const ByteSource &source, const RowVisitor &visit)
{
    m_visit = visit;
    m_rowNumber = 0;
    parseXml(source, *this);
}

void WorksheetXMLParser::startElement(std::string_view name, const char **attributes)
{
    if (name == "c")
        startCell(attributes);
    else if (name == "v")
        m_insideValue = true;
    else if (name == "t")
        m_insideInlineText = true;
    else if (name == "row")
        startRow(attributes);
}

void WorksheetXMLParser::startRow(const char **attributes)
{
    m_row.clear();
    ++m_rowNumber;
    while (*attributes && !isNamedR(*attributes))
        attributes += 2;
    if (!*attributes)
        return;
    const std::string_view value = attributes[1];
    std::uint32_t number = 0;
    if (std::from_chars(value.data(), value.data() + value.size(), number).ec == std::errc())
        m_rowNumber = number;
}

void WorksheetXMLParser::startCell(const char **attributes)
{
    const char *reference = "A1";
    const char *type = "";
    for (; *attributes; attributes += 2) {
        const char *name = attributes[0];
        if (name[0] == '\0' || name[1] != '\0')
            continue;
        if (name[0] == 'r')
            reference = attributes[1];
        else if (name[0] == 't')
            type = attributes[1];
    }
    m_cellColumn = columnIndex(reference);
    m_cellType = type;
    m_valueText.clear();
    m_inlineText.clear();
}

void WorksheetXMLParser::characters(std::string_view text)
{
    if (m_insideValue)
        append(m_valueText, text);
    if (m_insideInlineText)
        append(m_inlineText, text);
}

void WorksheetXMLParser::endElement(std::string_view name)
{
    if (name == "c") {
        endCell();
    } else if (name == "v") {
        m_insideValue = false;
    } else if (name == "t") {
        m_insideInlineText = false;
    } else if (name == "row") {
        m_visit(m_row.row(m_rowNumber));
    }
}

void WorksheetXMLParser::endCell()
{
    const auto index = m_cellType == "s" ? tableIndex(m_valueText, m_sharedStrings.size())
                                         : std::optional<std::size_t>();
    const std::string_view text = index                       ? m_sharedStrings[*index]
                                  : m_cellType == "inlineStr" ? m_inlineText
                                                              : m_valueText;
    if (text.empty())
        return;
    if (m_cellColumn >= columnLimit)
        throw ReaderError(impossibleColumn);
    if (index)
        m_row.setShared(m_cellColumn, text);
    else
        m_row.setOwn(m_cellColumn, text);
}

} // namespace quenoria
