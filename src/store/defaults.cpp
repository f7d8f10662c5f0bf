#include "store/defaults.h"

#include "store/prospect_store.h"

#include <QTimeZone>

using namespace Qt::StringLiterals;

namespace quenoria {

const QString ProspectStore::defaultMessageID = u"olvak-premier-envoi"_s;
const QString ProspectStore::defaultEmailTemplateID = u"email-premier-envoi"_s;

const std::map<QString, QString> ProspectStore::legacyDepartmentNames = [] {
    std::map<QString, QString> names;
    for (const DepartmentInfo &department : defaultDepartments())
        names.emplace(department.code, department.name);
    return names;
}();

MessageTemplate defaultMessage()
{
    return {ProspectStore::defaultMessageID, u"1er envoi"_s,
            u"Bonjour,\n\n"
            "Je suis [votre nom], de [votre entreprise] à [votre ville].\n\n"
            "[Ce que vous proposez, en une phrase.] Une réponse à ce message suffit pour que je "
            "vous rappelle.\n\n"
            "[Votre adresse ou votre site]\n\n"
            "STOP pour ne plus recevoir de message."_s};
}

EmailTemplate defaultEmailTemplate()
{
    return {ProspectStore::defaultEmailTemplateID, u"1er envoi e-mail"_s,
            u"Développez votre présence en ligne"_s,
            u"Bonjour,\n\n"
            "Je suis [votre nom], de [votre entreprise] à [votre ville].\n\n"
            "[Ce que vous proposez, en deux ou trois phrases.] Dites-moi simplement quand vous "
            "joindre.\n\n"
            "[Votre adresse ou votre site]\n\n"
            "Si vous ne souhaitez plus recevoir de message de notre part, répondez simplement "
            "STOP à cet e-mail."_s};
}

std::vector<DepartmentInfo> defaultDepartments()
{
    return {{u"29"_s, u"Finistère"_s},
            {u"22"_s, u"Côtes-d’Armor"_s},
            {u"35"_s, u"Ille-et-Vilaine"_s},
            {u"56"_s, u"Morbihan"_s}};
}

QString defaultTestNumber() { return u"06 39 98 00 00"_s; }

QString legacyMessageTitle() { return u"Olvak 1er Envoi"_s; }

QStringList legacyBusinessNames()
{
    return {u"Studio Armorique Démo"_s, u"Quatre-Vents (enseigne fictive)"_s};
}

QString seededContactID() { return u"0639980001"_s; }

std::optional<Instant> seededSendDate()
{
    const QDateTime date(QDate(2026, 8, 9), QTime(10, 45), QTimeZone("Europe/Paris"));
    if (!date.isValid())
        return std::nullopt;
    return Instant(std::chrono::milliseconds(date.toMSecsSinceEpoch()));
}

} // namespace quenoria
