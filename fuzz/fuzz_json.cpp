// Any bytes as one of the data files: what can be decoded comes back the same after it was written.

#include "model/json_decode.h"
#include "model/json_text.h"
#include "model/records.h"
#include "model/text_set.h"

#include <cstdlib>
#include <set>

using namespace quenoria;

namespace {

template <typename Shape>
void decode(const QByteArray &file)
{
    (void)decodeJson<Shape>(file);
}

template <typename Record>
void decodeList(const QByteArray &file)
{
    const auto records = decodeJson<std::vector<Record>>(file);
    if (!records)
        return;
    std::string written;
    appendJson(written, *records, 0);
    if (decodeJson<std::vector<Record>>(QByteArray::fromStdString(written)) != records)
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, std::size_t size)
{
    const QByteArray file(reinterpret_cast<const char *>(data), qsizetype(size));
    decodeList<Prospect>(file);
    decodeList<MessageTemplate>(file);
    decodeList<EmailTemplate>(file);
    decodeList<DepartmentInfo>(file);
    decodeList<SendIntent>(file);
    decode<JsonMembers<QString>>(file);
    decode<JsonMembers<SendStatus>>(file);
    decode<JsonMembers<EmailSendStatus>>(file);
    decode<JsonMembers<ContactOverride>>(file);
    decode<JsonMembers<TextSet>>(file);
    decode<std::set<QString>>(file);
    return 0;
}
