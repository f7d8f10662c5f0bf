#pragma once

#include <QString>

#include <functional>
#include <string>
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
/// memory: a hundred thousand contacts hold a few dozen of them.
class RecentTexts {
public:
    QString text(std::string_view utf8)
    {
        if (utf8.size() > longest)
            return qString(utf8);
        Recent &recent = m_recent[std::hash<std::string_view>()(utf8) % m_recent.size()];
        if (recent.utf8 != utf8 || recent.text.isNull())
            recent = {std::string(utf8), qString(utf8)};
        return recent.text;
    }

private:
    static constexpr std::size_t longest = 64;
    static constexpr std::size_t count = 256;

    struct Recent {
        std::string utf8;
        QString text;
    };
    std::vector<Recent> m_recent{count};
};

} // namespace quenoria
