#pragma once

#include "import/xml_events.h"

#include <cstdint>
#include <string>
#include <vector>

namespace quenoria {

/// The texts that cells refer to by number, end to end in one block: a workbook has up to
/// millions of them.
class SharedStrings {
public:
    std::size_t size() const { return m_ends.size(); }
    std::string_view operator[](std::size_t index) const
    {
        const std::size_t start = index == 0 ? 0 : m_ends[index - 1];
        return std::string_view(m_texts).substr(start, m_ends[index] - start);
    }

    std::size_t bytes() const { return m_texts.size() + m_ends.size() * sizeof(std::uint32_t); }
    std::size_t lastBytes() const { return m_texts.size() - (m_ends.empty() ? 0 : m_ends.back()); }

    void reserve(std::size_t bytes) { m_texts.reserve(bytes); }
    void appendToLast(std::string_view text) { m_texts += text; }
    void closeLast() { m_ends.push_back(std::uint32_t(m_texts.size())); }
    void dropLast() { m_texts.resize(m_ends.empty() ? 0 : m_ends.back()); }

private:
    std::string m_texts;
    std::vector<std::uint32_t> m_ends;
};

/// Reads the shared string table: the texts of all t elements of an item, joined, so that the runs
/// of a rich text make one string; phonetic runs count as well.
class SharedStringsXMLParser : private XmlEvents {
public:
    /// expectedBytes: of the whole part, so that the texts are never moved while they grow.
    static SharedStrings parse(const ByteSource &source, std::size_t expectedBytes = 0);

private:
    void startElement(std::string_view name, const char **attributes) override;
    void characters(std::string_view text) override;
    void endElement(std::string_view name) override;

    SharedStrings m_strings;
    bool m_insideItem = false;
    bool m_insideText = false;
};

} // namespace quenoria
