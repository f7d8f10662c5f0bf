#include "platform/mime/header_text.h"

#include <QByteArrayList>

#include <algorithm>

namespace quenoria {

namespace {

constexpr qsizetype lineLength = 78;
constexpr qsizetype nameLength = 9;
constexpr qsizetype wordBytes = 42; ///< in base64 a word of 68 characters: it fits the first line

bool isPrintable(char character) { return character >= ' ' && character <= '~'; }

/// Whether a reader that decodes and unfolds makes the same text of it.
bool isPlain(const QByteArray &text)
{
    if (text.isEmpty() || text.startsWith(' ') || text.endsWith(' ') || text.contains("=?"))
        return false;
    const auto words = text.split(' ');
    return std::ranges::all_of(text, isPrintable) &&
           std::ranges::all_of(words, [](const QByteArray &word) {
               return !word.isEmpty() && word.size() < lineLength - nameLength;
           });
}

QByteArray folded(const QByteArray &text)
{
    QByteArray lines;
    qsizetype column = nameLength - 1;
    for (const QByteArray &word : text.split(' ')) {
        if (column + 1 + word.size() > lineLength) {
            lines += '\n';
            column = 0;
        }
        lines += ' ' + word;
        column += 1 + word.size();
    }
    return lines + '\n';
}

/// The text's UTF-8 in pieces that hold whole characters only.
QByteArrayList pieces(const QString &text)
{
    QByteArrayList list{{}};
    for (const char32_t character : text.toStdU32String()) {
        const QByteArray bytes = QString::fromUcs4(&character, 1).toUtf8();
        if (list.last().size() + bytes.size() > wordBytes)
            list << QByteArray();
        list.last() += bytes;
    }
    return list;
}

} // namespace

QByteArray headerText(const QString &text)
{
    if (const QByteArray utf8 = text.toUtf8(); isPlain(utf8))
        return folded(utf8);
    QByteArray lines;
    for (const QByteArray &piece : pieces(text))
        lines += " =?utf-8?B?" + piece.toBase64() + "?=\n";
    return lines;
}

} // namespace quenoria
