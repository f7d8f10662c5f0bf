#include "import/xml_events.h"

#include "import/import_error.h"

#include <expat.h>
#include <malloc.h>

#include <array>
#include <cstdlib>
#include <exception>
#include <memory>

using namespace Qt::StringLiterals;

namespace quenoria {

std::string_view localName(const char *qualifiedName)
{
    std::string_view name;
    const char *piece = qualifiedName;
    for (const char *c = piece;; ++c) {
        if (*c != ':' && *c != '\0')
            continue;
        if (c > piece)
            name = {piece, std::size_t(c - piece)};
        if (*c == '\0')
            return name;
        piece = c + 1;
    }
}

namespace {

constexpr int chunkSize = 64 * 1024;

/// expat scans an unfinished tag anew with each chunk, so that an endless one costs its square.
constexpr XML_Index longestMarkup = 1024L * 1024;

/// expat keeps every open element and every name it ever saw; a real workbook needs a few kB.
constexpr std::size_t mostMemory = 32UL * 1024 * 1024;

thread_local std::size_t memoryInUse = 0;

void *reallocate(void *block, std::size_t size)
{
    const std::size_t before = malloc_usable_size(block);
    if (memoryInUse - before + size > mostMemory)
        return nullptr;
    void *grown = std::realloc(block, size);
    if (grown)
        memoryInUse += malloc_usable_size(grown) - before;
    return grown;
}

void *allocate(std::size_t size) { return reallocate(nullptr, size); }

void release(void *block)
{
    memoryInUse -= malloc_usable_size(block);
    std::free(block);
}

constexpr XML_Memory_Handling_Suite limitedMemory{&allocate, &reallocate, &release};

/// One run of expat. Exceptions must not cross its C frames: they wait here until it returns.
class Parse {
public:
    explicit Parse(XmlEvents &events) : m_events(events)
    {
        XML_SetUserData(parser(), this);
        XML_SetElementHandler(parser(), &Parse::start, &Parse::end);
        XML_SetCharacterDataHandler(parser(), &Parse::characters);
        XML_SetStartDoctypeDeclHandler(parser(), &Parse::refuseDocumentType);
    }

    void run(const ByteSource &source);

private:
    XML_Parser parser() const { return m_parser.get(); }

    template <typename Action>
    static void guarded(void *data, Action &&action)
    {
        Parse &self = *static_cast<Parse *>(data);
        try {
            action(self.m_events);
        } catch (...) {
            self.m_thrown = std::current_exception();
            XML_StopParser(self.parser(), XML_FALSE);
        }
    }

    static void start(void *data, const char *name, const char **attributes)
    {
        guarded(data, [=](XmlEvents &events) { events.startElement(localName(name), attributes); });
    }

    static void end(void *data, const char *name)
    {
        guarded(data, [=](XmlEvents &events) { events.endElement(localName(name)); });
    }

    static void characters(void *data, const char *text, int size)
    {
        guarded(data, [=](XmlEvents &events) { events.characters({text, std::size_t(size)}); });
    }

    static void refuseDocumentType(void *data, const char *, const char *, const char *, int)
    {
        XML_StopParser(static_cast<Parse *>(data)->parser(), XML_FALSE);
    }

    [[noreturn]] void fail(const ByteSource &source) const;

    std::unique_ptr<XML_ParserStruct, decltype(&XML_ParserFree)> m_parser{
        XML_ParserCreate_MM(nullptr, &limitedMemory, nullptr), &XML_ParserFree};
    XmlEvents &m_events;
    std::exception_ptr m_thrown;
};

void Parse::run(const ByteSource &source)
{
    XML_Index fed = 0;
    for (bool atEnd = false; !atEnd;) {
        auto *buffer = static_cast<char *>(XML_GetBuffer(parser(), chunkSize));
        if (!buffer)
            fail(source);
        const std::size_t size = source({buffer, chunkSize});
        atEnd = size == 0;
        fed += XML_Index(size);
        if (XML_ParseBuffer(parser(), int(size), atEnd) != XML_STATUS_OK ||
            fed - XML_GetCurrentByteIndex(parser()) > longestMarkup)
            fail(source);
    }
}

void Parse::fail(const ByteSource &source) const
{
    if (m_thrown)
        std::rethrow_exception(m_thrown);
    std::array<char, chunkSize> rest; // a damaged archive only tells at the end of the part
    while (source(rest) > 0)
        continue;
    throw ReaderError(u"Le contenu du fichier Excel n’est pas valide (ligne %1, colonne %2)."_s
                          .arg(XML_GetCurrentLineNumber(parser()))
                          .arg(XML_GetCurrentColumnNumber(parser()) + 1));
}

} // namespace

void parseXml(const ByteSource &source, XmlEvents &events) { Parse(events).run(source); }

} // namespace quenoria
