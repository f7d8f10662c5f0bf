#include "model/text_order.h"

#include <QLocale>

namespace quenoria {

namespace {

QCollator collator(bool numeric)
{
    QCollator order(displayLocale());
    order.setCaseSensitivity(Qt::CaseInsensitive);
    order.setNumericMode(numeric);
    order.compare(u"a", u"b"); // built on first use: not left to two threads at once
    return order;
}

} // namespace

QLocale displayLocale()
{
    const QLocale user;
    return user.language() == QLocale::C ? QLocale(QLocale::French, QLocale::France) : user;
}

const QCollator &finderOrder()
{
    static const QCollator order = collator(true);
    return order;
}

const QCollator &dictionaryOrder()
{
    static const QCollator order = collator(false);
    return order;
}

} // namespace quenoria
