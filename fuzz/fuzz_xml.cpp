// Any bytes as the two kinds of parts: shared strings up to the first NUL, a worksheet after it.

#include "import/import_error.h"
#include "import/worksheet_xml_parser.h"

#include <cstring>

using namespace quenoria;

namespace {

ByteSource bytes(std::string_view text)
{
    return [text](std::span<char> buffer) mutable {
        const std::size_t size = std::min(buffer.size(), text.size());
        std::memcpy(buffer.data(), text.data(), size);
        text.remove_prefix(size);
        return size;
    };
}

SharedStrings sharedStrings(std::string_view part)
{
    try {
        return SharedStringsXMLParser::parse(bytes(part));
    } catch (const ImportFailure &) {
        return {};
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, std::size_t size)
{
    const std::string_view input(reinterpret_cast<const char *>(data), size);
    const std::size_t middle = std::min(input.find('\0'), size);
    const SharedStrings strings = sharedStrings(input.substr(0, middle));
    try {
        const ByteSource worksheet = bytes(input.substr(std::min(middle + 1, size)));
        WorksheetXMLParser(strings).parse(worksheet, [](const WorksheetRow &row) {
            std::size_t end = 0;
            for (const WorksheetCell &cell : row.cells()) {
                if (cell.text.empty() || cell.column < end || row[cell.column] != cell.text)
                    std::abort();
                end = cell.column + 1;
            }
        });
    } catch (const ImportFailure &) {
    }
    return 0;
}
