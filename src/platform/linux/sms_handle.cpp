#include "platform/linux/sms_handle.h"

#include <QRegularExpression>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

constexpr qsizetype nationalDigits = 9; ///< of a French number without its prefix

QString significantDigits(const QString &number)
{
    QString digits;
    std::ranges::copy_if(number, std::back_inserter(digits),
                         [](QChar each) { return each >= u'0' && each <= u'9'; });
    return digits.right(nationalDigits);
}

} // namespace

TransportResult unfitForSms(const QString &handle, const QString &text)
{
    static const QRegularExpression number(
        QRegularExpression::anchoredPattern(u"\\+?[0-9]{3,20}"_s));
    if (!number.match(handle).hasMatch())
        return TransportFailure{u"« %1 » n’est pas un numéro de téléphone."_s.arg(handle)};
    if (text.contains(QChar(0)))
        return TransportFailure{u"Le message contient un caractère qui ne peut pas être envoyé."_s};
    return {};
}

bool isSameNumber(const QString &one, const QString &other)
{
    const QString digits = significantDigits(one);
    return !digits.isEmpty() && digits == significantDigits(other);
}

} // namespace quenoria
