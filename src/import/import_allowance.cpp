#include "import/import_allowance.h"

#include "import/reader_limits.h"
#include "import/shared_strings_xml_parser.h"

namespace quenoria {

void ImportAllowance::grant(const WorkbookFrame &frame)
{
    const std::uint64_t ofParts = frame.inflatedBytes * 12 / 5;
    m_left = readerLimits::keptBytes.most + ofParts - frame.sharedStrings->bytes();
}

void ImportAllowance::spend(std::uint64_t bytes)
{
    if (bytes > m_left)
        readerLimits::keptBytes.refuse();
    m_left -= bytes;
}

void ImportAllowance::spend(const QString &text)
{
    constexpr std::uint64_t overhead = 32; // of a text, whatever its length
    constexpr std::uint64_t ofLetter = 3;  // here, and in the text of its record for the file
    spend(overhead + ofLetter * std::uint64_t(text.size()));
}

void ImportAllowance::spend(const Prospect &contact)
{
    spend(2 * sizeof contact); // a list that grows stands there twice for a moment
    spend(contact.id);
    spend(contact.label);
    spend(contact.phone);
    if (contact.email)
        spend(*contact.email);
    if (contact.profession) // shared by contacts, but not by the texts of their records
        spend(std::uint64_t(contact.profession->size()));
}

} // namespace quenoria
