#include "import/shared_strings_xml_parser.h"

#include "import/reader_limits.h"

namespace quenoria {

SharedStrings SharedStringsXMLParser::parse(const ByteSource &source, std::size_t expectedBytes)
{
    SharedStringsXMLParser parser;
    parser.m_strings.reserve(expectedBytes);
    parseXml(source, parser);
    return std::move(parser.m_strings);
}

void SharedStringsXMLParser::startElement(std::string_view name, const char ** /*attributes*/)
{
    if (name == "si") {
        m_insideItem = true;
        m_strings.dropLast();
    } else if (name == "t") {
        m_insideText = m_insideText || m_insideItem;
    }
}

void SharedStringsXMLParser::characters(std::string_view text)
{
    if (!m_insideText)
        return;
    readerLimits::cellBytes.check(m_strings.lastBytes() + text.size());
    m_strings.appendToLast(text);
}

void SharedStringsXMLParser::endElement(std::string_view name)
{
    if (name == "t") {
        m_insideText = false;
    } else if (name == "si") {
        m_strings.closeLast();
        m_insideItem = false;
    }
}

} // namespace quenoria
