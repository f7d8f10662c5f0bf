#include "import/xml_events.h"

#include "import/reader_limits.h"

#include <expat.h>
#include <malloc.h>

#include <array>
#include <cstdlib>
#include <exception>
#include <memory>
#include <new>

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

const QString documentType = u"Le fichier Excel contient une déclaration de type de document, "
                             u"ce qu’un classeur n’a jamais."_s;
const QString unknownCharset =
    u"Le fichier Excel est écrit dans un jeu de caractères que l’import ne sait pas lire."_s;

thread_local std::size_t memoryInUse = 0;

void *reallocate(void *block, std::size_t size)
{
    const std::size_t before = malloc_usable_size(block);
    if (memoryInUse - before + size > readerLimits::parserBytes.most)
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
        if (!parser())
            throw std::bad_alloc();
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
        guarded(data, [=, &depth = static_cast<Parse *>(data)->m_depth](XmlEvents &events) {
            readerLimits::depth.check(++depth);
            events.startElement(localName(name), attributes);
        });
    }

    static void end(void *data, const char *name)
    {
        --static_cast<Parse *>(data)->m_depth;
        guarded(data, [=](XmlEvents &events) { events.endElement(localName(name)); });
    }

    static void characters(void *data, const char *text, int size)
    {
        guarded(data, [=](XmlEvents &events) { events.characters({text, std::size_t(size)}); });
    }

    static void refuseDocumentType(void *data, const char *, const char *, const char *, int)
    {
        guarded(data, [](XmlEvents &) { throw ReaderError(documentType); });
    }

    [[noreturn]] void fail(const ByteSource &source) const;

    std::unique_ptr<XML_ParserStruct, decltype(&XML_ParserFree)> m_parser{
        XML_ParserCreate_MM(nullptr, &limitedMemory, nullptr), &XML_ParserFree};
    XmlEvents &m_events;
    std::exception_ptr m_thrown;
    std::uint64_t m_depth = 0;
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
        if (XML_ParseBuffer(parser(), int(size), atEnd) != XML_STATUS_OK)
            fail(source);
        readerLimits::markupBytes.check(std::uint64_t(fed - XML_GetCurrentByteIndex(parser())));
    }
}

void Parse::fail(const ByteSource &source) const
{
    if (m_thrown)
        std::rethrow_exception(m_thrown);
    std::array<char, chunkSize> rest; // a damaged archive only tells at the end of the part
    while (source(rest) > 0)
        continue;
    const XML_Error error = XML_GetErrorCode(parser());
    if (error == XML_ERROR_NO_MEMORY)
        readerLimits::parserBytes.refuse();
    if (error == XML_ERROR_UNKNOWN_ENCODING || error == XML_ERROR_INCORRECT_ENCODING)
        throw ReaderError(unknownCharset);
    throw ReaderError(u"Le contenu du fichier Excel n’est pas valide (ligne %1, colonne %2)."_s
                          .arg(XML_GetCurrentLineNumber(parser()))
                          .arg(XML_GetCurrentColumnNumber(parser()) + 1));
}

} // namespace

void parseXml(const ByteSource &source, XmlEvents &events) { Parse(events).run(source); }

} // namespace quenoria
