#include "store/collection.h"
#include "store/prospect_store.h"
#include "tour/visits.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

QJsonDocument read(const ProspectStore &store, Collection collection)
{
    QFile file(store.file(collection));
    QJsonParseError error;
    const QByteArray content = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    QJsonDocument document = QJsonDocument::fromJson(content, &error);
    if (error.error != QJsonParseError::NoError)
        throw TourFailure(u"%1 n’est pas lisible."_s.arg(file.fileName()));
    return document;
}

void checkSends(const QJsonObject &statuses, const QStringList &ids)
{
    for (const QString &id : ids) {
        const QJsonObject status = statuses.value(id).toObject();
        if (!status.value(u"sent"_s).toBool() ||
            status.value(u"sendHistory"_s).toArray().size() != 1)
            throw TourFailure(u"L’envoi à %1 n’est pas enregistré une fois."_s.arg(id));
    }
}

void checkQuota(const QJsonObject &months, const QStringList &ids)
{
    QStringList counted;
    for (const auto &month : months) {
        for (const auto &recipient : month.toArray())
            counted << recipient.toString();
    }
    for (const QString &id : ids) {
        if (!counted.contains(id))
            throw TourFailure(u"Le destinataire %1 n’est pas compté ce mois."_s.arg(id));
    }
}

void checkOutbox(const QString &folder, const QString &pattern, qsizetype expected)
{
    const qsizetype found = QDir(folder).entryList({pattern}, QDir::Files).size();
    if (found != expected)
        throw TourFailure(u"%1 messages « %2 » au lieu de %3 dans %4."_s.arg(found)
                              .arg(pattern)
                              .arg(expected)
                              .arg(folder));
}

} // namespace

void checkFiles(Guide &guide, const ProspectStore &store, const VisitedContacts &visited)
{
    for (const CollectionDescriptor &entry : collections())
        (void)read(store, entry.collection);
    checkSends(read(store, Collection::statuses).object(), visited.sms);
    checkSends(read(store, Collection::emailStatuses).object(), visited.emails);
    checkQuota(read(store, Collection::smsMonthlyRecipientsByMonth).object(), visited.sms);
    const QString folder = QFileInfo(store.file(Collection::statuses)).path();
    checkOutbox(folder + u"/envois"_s, u"*.txt"_s, visited.sms.size() + 1); // and the trial
    checkOutbox(folder + u"/envois"_s, u"*.eml"_s, visited.emails.size());
    guide.say(u"Les fichiers contiennent chaque envoi, une seule fois."_s);
}

} // namespace quenoria
