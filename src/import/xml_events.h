#pragma once

#include "import/byte_source.h"

#include <string_view>

namespace quenoria {

/// Receives the events of an XML document in document order, as UTF-8. Elements are known by their
/// local names: <x:row> and <row> are the same. What a receiver throws ends the parse.
class XmlEvents {
public:
    virtual ~XmlEvents() = default;

    /// attributes: name and value by turns, closed by a null pointer.
    virtual void startElement(std::string_view localName, const char **attributes) = 0;
    virtual void characters(std::string_view text) = 0;
    virtual void endElement(std::string_view localName) = 0;
};

/// The last piece of a name that is split at its colons, not counting empty ones.
///
///   "row" -> "row"    "x:row" -> "row"    "x:row:" -> "row"
[[nodiscard]] std::string_view localName(const char *qualifiedName);

/// Parses a whole document. Throws a ReaderError when it is malformed, or when it uses what no
/// workbook needs and an attacker does: a document type, deep nesting, endless markup or names.
void parseXml(const ByteSource &source, XmlEvents &events);

} // namespace quenoria
