#pragma once

#include "import/row_builder.h"
#include "import/shared_strings_xml_parser.h"

#include <functional>

namespace quenoria {

/// Column index of a cell reference: its capital letters in base 26; nothing else counts.
///
///   "AA7" -> 26    "$B$3" -> 1    "12" -> 0    "" -> 0
///
/// Columns that no worksheet has all give columnLimit.
inline constexpr std::size_t columnLimit = 16'384; ///< the last column is XFD
[[nodiscard]] std::size_t columnIndex(std::string_view reference);

/// Reads one worksheet and hands over its rows in document order, the empty ones too; gaps in
/// their numbering do not show.
class WorksheetXMLParser : private XmlEvents {
public:
    using RowVisitor = std::function<void(const WorksheetRow &)>;

    explicit WorksheetXMLParser(const SharedStrings &sharedStrings) : m_sharedStrings(sharedStrings)
    {
    }

    /// The row lives until its visit ends. Throws a ReaderError, or what the visitor threw.
    void parse(const ByteSource &source, const RowVisitor &visit);

private:
    void startElement(std::string_view name, const char **attributes) override;
    void characters(std::string_view text) override;
    void endElement(std::string_view name) override;

    void startRow(const char **attributes);
    void startCell(const char **attributes);
    void endCell();

    const SharedStrings &m_sharedStrings;
    RowVisitor m_visit;
    RowBuilder m_row;
    std::uint32_t m_rowNumber = 0;
    std::size_t m_cellColumn = 0;
    std::string m_cellType;
    std::string m_valueText;
    std::string m_inlineText;
    bool m_insideValue = false;
    bool m_insideInlineText = false;
};

} // namespace quenoria
