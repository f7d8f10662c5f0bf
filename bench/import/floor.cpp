#include "floor.h"

#include <expat.h>
#include <zip.h>

namespace quenoria::bench {

namespace {

constexpr int chunkSize = 64 * 1024;

std::uint64_t parsePart(zip_t *archive, const char *name)
{
    XML_Parser parser = XML_ParserCreate(nullptr);
    XML_SetElementHandler(
        parser, [](void *, const char *, const char **) {}, [](void *, const char *) {});
    XML_SetCharacterDataHandler(parser, [](void *, const char *, int) {});
    zip_file_t *part = zip_fopen(archive, name, 0);
    std::uint64_t total = 0;
    for (zip_int64_t size = 1; size > 0; total += std::uint64_t(size)) {
        size = zip_fread(part, XML_GetBuffer(parser, chunkSize), chunkSize);
        XML_ParseBuffer(parser, int(size), size == 0);
    }
    zip_fclose(part);
    XML_ParserFree(parser);
    return total;
}

} // namespace

std::uint64_t inflateAndParse(const QString &workbookPath)
{
    zip_t *archive = zip_open(workbookPath.toUtf8().constData(), ZIP_RDONLY, nullptr);
    const std::uint64_t total =
        parsePart(archive, "xl/sharedStrings.xml") + parsePart(archive, "xl/worksheets/sheet1.xml");
    zip_discard(archive);
    return total;
}

} // namespace quenoria::bench
