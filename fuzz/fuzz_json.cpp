// Any bytes as one of the data files: what can be decoded comes back the same after it was written.

#include "model/collections.h"
#include "model/records.h"

#include <cstdlib>

using namespace quenoria;

namespace {

template <typename Shape>
std::string written(const Shape &collection)
{
    std::string file;
    writeJson(collection, [&file](std::string_view piece) { file += piece; });
    return file;
}

template <typename Shape>
void decode(const QByteArray &bytes)
{
    const auto collection = decodeCollection<Shape>(bytes);
    if (!collection)
        return;
    const std::string file = written(*collection);
    const auto again = decodeCollection<Shape>(QByteArray::fromStdString(file));
    if (!again || written(*again) != file)
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, std::size_t size)
{
    const QByteArray file(reinterpret_cast<const char *>(data), qsizetype(size));
    decode<Sequence<Prospect>>(file);
    decode<Sequence<MessageTemplate>>(file);
    decode<Sequence<EmailTemplate>>(file);
    decode<Sequence<DepartmentInfo>>(file);
    decode<Dictionary<QString>>(file);
    decode<Dictionary<SendStatus>>(file);
    decode<Dictionary<EmailSendStatus>>(file);
    decode<Dictionary<ContactOverride>>(file);
    decode<Dictionary<TextSet>>(file);
    decode<IdSet>(file);
    (void)decodeJson<std::vector<SendIntent>>(file);
    return 0;
}
