#include "store/erased_keys.h"

#include <QCryptographicHash>
#include <QRandomGenerator>
#include <QStringList>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

const QString form = u"sha256:%1:%2"_s;

QByteArray hashOf(const QString &key, const QByteArray &salt)
{
    QCryptographicHash hash(QCryptographicHash::Sha256);
    hash.addData(QByteArray::fromHex(salt));
    hash.addData(key.toUtf8());
    return hash.result().toHex();
}

QByteArray freshSalt()
{
    std::array<quint32, 4> words{};
    QRandomGenerator::system()->fillRange(words.data(), qsizetype(words.size()));
    return QByteArray(reinterpret_cast<const char *>(words.data()), sizeof words).toHex();
}

} // namespace

bool ErasedKeys::take(const QString &entry)
{
    const QStringList parts = entry.split(u':');
    constexpr qsizetype hashLength = 64;
    if (parts.size() != 3 || parts[0] != u"sha256"_s || parts[2].size() != hashLength)
        return false;
    m_hashesBySalt[parts[1].toLatin1()].insert(parts[2].toLatin1());
    return true;
}

QString ErasedKeys::entry(const QString &key) const
{
    const QByteArray salt = empty() ? freshSalt() : m_hashesBySalt.begin()->first;
    return form.arg(QString::fromLatin1(salt), QString::fromLatin1(hashOf(key, salt)));
}

bool ErasedKeys::contains(const QString &key) const
{
    return std::ranges::any_of(m_hashesBySalt, [&key](const auto &salted) {
        return salted.second.contains(hashOf(key, salted.first));
    });
}

} // namespace quenoria
