#include "platform/mime/mime_message.h"

#include "model/local_time.h"
#include "platform/mime/header_text.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QMimeDatabase>
#include <QSysInfo>
#include <QUrl>

#include <gmime/gmime.h>

#include <algorithm>
#include <memory>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

struct Unreference {
    void operator()(gpointer object) const { g_object_unref(object); }
};
template <typename Object>
using Owned = std::unique_ptr<Object, Unreference>;

struct FreeText {
    void operator()(char *text) const { g_free(text); }
};

void initialiseOnce()
{
    [[maybe_unused]] static const bool done = [] {
        g_mime_init();
        return true;
    }();
}

/// White space, line breaks and other scripts have no place in an address, and could start a
/// header of their own.
bool isPlain(const QString &address)
{
    return !address.isEmpty() && std::ranges::all_of(address, [](QChar character) {
        return character > u' ' && character <= u'~';
    });
}

QString oneLine(QString text)
{
    text.replace(u"\r\n"_s, u" "_s);
    for (const QChar lineBreak : {u'\r', u'\n', u'\0'})
        text.replace(lineBreak, u' ');
    return text;
}

Owned<GMimeObject> partOf(const char *type, const char *subtype, const QByteArray &bytes,
                          GMimeContentEncoding encoding)
{
    GMimePart *part = g_mime_part_new_with_type(type, subtype);
    const Owned<GMimeStream> stream(
        g_mime_stream_mem_new_with_buffer(bytes.constData(), std::size_t(bytes.size())));
    const Owned<GMimeDataWrapper> content(
        g_mime_data_wrapper_new_with_stream(stream.get(), GMIME_CONTENT_ENCODING_DEFAULT));
    g_mime_part_set_content(part, content.get());
    g_mime_part_set_content_encoding(part, encoding);
    return Owned<GMimeObject>(GMIME_OBJECT(part));
}

Owned<GMimeObject> textPart(const QString &content)
{
    Owned<GMimeObject> part =
        partOf("text", "plain", content.toUtf8(), GMIME_CONTENT_ENCODING_QUOTEDPRINTABLE);
    g_mime_object_set_content_type_parameter(part.get(), "charset", "utf-8");
    return part;
}

/// Whether the bytes may travel without an encoding: lines of letters of seven bits, none of them
/// too long for a mail server.
bool isSevenBit(const QByteArray &bytes)
{
    constexpr qsizetype longestLine = 998;
    const auto travels = [](char byte) { return byte > '\0' && byte != '\r'; };
    const auto lines = bytes.split('\n');
    return std::ranges::all_of(bytes, travels) &&
           std::ranges::all_of(lines,
                               [](const QByteArray &line) { return line.size() <= longestLine; });
}

/// Messages inside messages must not be encoded: one that could not travel as it is goes as bytes
/// of any kind.
Owned<GMimeObject> partOfType(const QByteArray &type, const QByteArray &bytes)
{
    const QList<QByteArray> names = type.split('/');
    if (names.front() != "message" && names.front() != "multipart")
        return partOf(names.front(), names.back(), bytes, GMIME_CONTENT_ENCODING_BASE64);
    const QByteArray lines = QByteArray(bytes).replace("\r\n", "\n");
    if (type == "message/rfc822" && isSevenBit(lines))
        return partOf("message", "rfc822", lines, GMIME_CONTENT_ENCODING_7BIT);
    return partOf("application", "octet-stream", bytes, GMIME_CONTENT_ENCODING_BASE64);
}

/// Nothing when the file cannot be read.
Owned<GMimeObject> filePart(const QString &path)
{
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly))
        return nullptr;
    const QByteArray bytes = file.readAll();
    if (file.error() != QFile::NoError)
        return nullptr;
    Owned<GMimeObject> part =
        partOfType(QMimeDatabase().mimeTypeForFile(path).name().toUtf8(), bytes);
    g_mime_part_set_filename(GMIME_PART(part.get()), oneLine(QFileInfo(path).fileName()).toUtf8());
    return part;
}

QStringList addressesOf(const OutgoingMessage &message, const std::optional<MailIdentity> &identity)
{
    QStringList addresses = message.recipients;
    if (identity)
        addresses << identity->address;
    if (identity && !identity->replyTo.isEmpty())
        addresses << identity->replyTo;
    return addresses;
}

TransportFailure unreadable(const QString &path)
{
    return {u"Le fichier joint « %1 » ne peut pas être lu."_s.arg(path)};
}

void setDate(GMimeMessage *message, const Clock &clock)
{
    const QDateTime date = localDateTime(clock.now(), clock.zone());
    GTimeZone *zone = g_time_zone_new_offset(date.offsetFromUtc());
    GDateTime *utc = g_date_time_new_from_unix_utc(date.toSecsSinceEpoch());
    GDateTime *local = g_date_time_to_timezone(utc, zone);
    g_mime_message_set_date(message, local);
    g_date_time_unref(local);
    g_date_time_unref(utc);
    g_time_zone_unref(zone);
}

/// The sender's name is a text of the user's: it stays on its line. Recipients can ask for no more
/// messages with one click, which writes to the sender.
void setIdentity(GMimeMessage *message, const MailIdentity &identity)
{
    const QByteArray name = oneLine(identity.name).toUtf8();
    const QByteArray address = identity.address.trimmed().toLatin1();
    g_mime_message_add_mailbox(message, GMIME_ADDRESS_TYPE_FROM,
                               name.isEmpty() ? nullptr : name.constData(), address);
    if (!identity.replyTo.isEmpty())
        g_mime_message_add_mailbox(message, GMIME_ADDRESS_TYPE_REPLY_TO, nullptr,
                                   identity.replyTo.trimmed().toLatin1());
    const QByteArray link =
        "<mailto:" + QUrl::toPercentEncoding(QString::fromLatin1(address), "@") + "?subject=STOP>";
    g_mime_object_set_header(GMIME_OBJECT(message), "List-Unsubscribe", link, nullptr);
    g_mime_message_set_message_id(message, identity.messageId);
}

void setHeaders(GMimeMessage *message, const OutgoingMessage &outgoing, const Clock &clock)
{
    for (const QString &recipient : outgoing.recipients)
        g_mime_message_add_mailbox(message, GMIME_ADDRESS_TYPE_TO, nullptr,
                                   recipient.trimmed().toUtf8());
    g_mime_message_set_subject(message, "", nullptr);
    g_mime_header_set_raw_value(
        g_mime_header_list_get_header(g_mime_object_get_header_list(GMIME_OBJECT(message)),
                                      "Subject"),
        headerText(oneLine(outgoing.subject)));
    setDate(message, clock);
    const std::unique_ptr<char, FreeText> id(
        g_mime_utils_generate_message_id(QSysInfo::machineHostName().toUtf8()));
    g_mime_message_set_message_id(message, id.get());
}

QByteArray wireText(GMimeMessage *message)
{
    const std::unique_ptr<char, FreeText> text(
        g_mime_object_to_string(GMIME_OBJECT(message), nullptr));
    return QByteArray(text.get()).replace("\n", "\r\n");
}

} // namespace

std::variant<QByteArray, TransportFailure> mimeMessage(const OutgoingMessage &message,
                                                       const Clock &clock,
                                                       const std::optional<MailIdentity> &identity)
{
    initialiseOnce();
    for (const QString &address : addressesOf(message, identity)) {
        if (!isPlain(address.trimmed()))
            return TransportFailure{u"L’adresse « %1 » n’est pas utilisable."_s.arg(address)};
    }

    Owned<GMimeObject> body = textPart(message.content);
    if (!message.attachments.isEmpty()) {
        GMimeMultipart *parts = g_mime_multipart_new_with_subtype("mixed");
        g_mime_multipart_add(parts, body.get());
        body.reset(GMIME_OBJECT(parts));
        for (const QString &path : message.attachments) {
            const Owned<GMimeObject> file = filePart(path);
            if (!file)
                return unreadable(path);
            g_mime_multipart_add(parts, file.get());
        }
    }
    const Owned<GMimeMessage> mime(g_mime_message_new(true));
    setHeaders(mime.get(), message, clock);
    if (identity)
        setIdentity(mime.get(), *identity);
    g_mime_message_set_mime_part(mime.get(), body.get());
    return wireText(mime.get());
}

} // namespace quenoria
