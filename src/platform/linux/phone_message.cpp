#include "platform/linux/phone_message.h"

#include <QDBusArgument>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

QStringList readNumbers(const QDBusArgument &argument)
{
    QStringList numbers;
    argument.beginArray();
    while (!argument.atEnd()) {
        QString number;
        argument.beginStructure();
        argument >> number;
        argument.endStructure();
        numbers << number;
    }
    argument.endArray();
    return numbers;
}

} // namespace

std::optional<PhoneMessage> readPhoneMessage(const QVariant &value)
{
    if (value.metaType() != QMetaType::fromType<QDBusArgument>())
        return {};
    const auto argument = value.value<QDBusArgument>();
    if (!argument.currentSignature().startsWith(u"(isa(s)xiixi"_s))
        return {};
    PhoneMessage message;
    int kind = 0;
    int isRead = 0;
    qint64 conversation = 0;
    int identifier = 0;
    argument.beginStructure();
    argument >> kind >> message.text;
    message.numbers = readNumbers(argument);
    argument >> message.date >> message.type >> isRead >> conversation >> identifier;
    argument.endStructure();
    message.identifier = identifier;
    message.conversation = conversation;
    return message;
}

} // namespace quenoria
