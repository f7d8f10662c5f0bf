#include "platform/mime/mime_message.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QMimeDatabase>
#include <QSysInfo>

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

QByteArray oneLine(QString text)
{
    text.replace(u"\r\n"_s, u" "_s);
    for (const QChar lineBreak : {u'\r', u'\n', u'\0'})
        text.replace(lineBreak, u' ');
    return text.toUtf8();
}

Owned<GMimeObject> textPart(const QString &content)
{
    GMimeTextPart *part = g_mime_text_part_new_with_subtype("plain");
    g_mime_text_part_set_charset(part, "utf-8");
    g_mime_text_part_set_text(part, content.toUtf8().constData());
    g_mime_part_set_content_encoding(GMIME_PART(part), GMIME_CONTENT_ENCODING_QUOTEDPRINTABLE);
    return Owned<GMimeObject>(GMIME_OBJECT(part));
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

    const QList<QByteArray> type = QMimeDatabase().mimeTypeForFile(path).name().toUtf8().split('/');
    GMimePart *part = g_mime_part_new_with_type(type.front(), type.back());
    const Owned<GMimeStream> stream(
        g_mime_stream_mem_new_with_buffer(bytes.constData(), std::size_t(bytes.size())));
    const Owned<GMimeDataWrapper> content(
        g_mime_data_wrapper_new_with_stream(stream.get(), GMIME_CONTENT_ENCODING_DEFAULT));
    g_mime_part_set_content(part, content.get());
    g_mime_part_set_content_encoding(part, GMIME_CONTENT_ENCODING_BASE64);
    g_mime_part_set_filename(part, oneLine(QFileInfo(path).fileName()));
    return Owned<GMimeObject>(GMIME_OBJECT(part));
}

TransportFailure unreadable(const QString &path)
{
    return {u"Le fichier joint « %1 » ne peut pas être lu."_s.arg(path)};
}

void setDate(GMimeMessage *message, const Clock &clock)
{
    const qint64 now = clock.now().time_since_epoch().count();
    const QDateTime date = QDateTime::fromMSecsSinceEpoch(now, clock.zone());
    GTimeZone *zone = g_time_zone_new_offset(date.offsetFromUtc());
    GDateTime *utc = g_date_time_new_from_unix_utc(date.toSecsSinceEpoch());
    GDateTime *local = g_date_time_to_timezone(utc, zone);
    g_mime_message_set_date(message, local);
    g_date_time_unref(local);
    g_date_time_unref(utc);
    g_time_zone_unref(zone);
}

void setHeaders(GMimeMessage *message, const OutgoingMessage &outgoing, const Clock &clock)
{
    for (const QString &recipient : outgoing.recipients)
        g_mime_message_add_mailbox(message, GMIME_ADDRESS_TYPE_TO, nullptr,
                                   recipient.trimmed().toUtf8());
    g_mime_message_set_subject(message, oneLine(outgoing.subject), "utf-8");
    setDate(message, clock);
    const std::unique_ptr<char, FreeText> id(
        g_mime_utils_generate_message_id(QSysInfo::machineHostName().toUtf8()));
    g_mime_message_set_message_id(message, id.get());
}

QByteArray wireText(GMimeMessage *message)
{
    GMimeFormatOptions *format = g_mime_format_options_new();
    g_mime_format_options_set_newline_format(format, GMIME_NEWLINE_FORMAT_DOS);
    const std::unique_ptr<char, FreeText> text(
        g_mime_object_to_string(GMIME_OBJECT(message), format));
    g_mime_format_options_free(format);
    return text.get();
}

} // namespace

std::variant<QByteArray, TransportFailure> mimeMessage(const OutgoingMessage &message,
                                                       const Clock &clock)
{
    initialiseOnce();
    for (const QString &recipient : message.recipients) {
        if (!isPlain(recipient.trimmed()))
            return TransportFailure{u"L’adresse « %1 » n’est pas utilisable."_s.arg(recipient)};
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
    g_mime_message_set_mime_part(mime.get(), body.get());
    return wireText(mime.get());
}

} // namespace quenoria
