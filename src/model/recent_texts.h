#pragma once

#include <QString>

#include <algorithm>
#include <cstring>
#include <string_view>
#include <vector>

namespace quenoria {

/// A mark of byte order at the head of a value is part of it.
inline QString qString(std::string_view text)
{
    constexpr std::string_view mark = "\xEF\xBB\xBF";
    const QString read = QString::fromUtf8(text.data(), qsizetype(text.size()));
    return text.starts_with(mark) ? QChar(QChar::ByteOrderMark) + read : read;
}

/// Gives texts that come again and again (departments, trades, comments, templates) the same
/// memory: a hundred thousand contacts hold a few dozen of them. The bytes outlive it.
class RecentTexts {
public:
    QString text(std::string_view utf8)
    {
        if (utf8.size() > longest)
            return qString(utf8);
        Recent &recent = m_recent[placeOf(utf8)];
        if (recent.utf8 != utf8 || recent.text.isNull())
            recent = {utf8, qString(utf8)};
        return recent.text;
    }

private:
    static constexpr std::size_t longest = 64;
    static constexpr std::size_t count = 256;

    /// By the end, where numbered texts differ.
    static std::size_t placeOf(std::string_view utf8)
    {
        quint64 end = 0;
        const std::size_t size = std::min(utf8.size(), sizeof end);
        std::memcpy(&end, utf8.data() + (utf8.size() - size), size);
        constexpr quint64 odd = 0x9E3779B97F4A7C15U; // mixes all bits into the highest
        return std::size_t(((end + utf8.size()) * odd) >> 56U);
    }

    struct Recent {
        std::string_view utf8;
        QString text;
    };
    std::vector<Recent> m_recent{count};
};

} // namespace quenoria
