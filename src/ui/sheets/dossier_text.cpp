#include "ui/sheets/dossier_text.h"

#include "store/channel_records.h"
#include "ui/sheets/history_rows.h"

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

QString yesOrNo(bool yes) { return yes ? u"oui"_s : u"non"_s; }

QString orNone(const QString &text) { return text.trimmed().isEmpty() ? u"aucun"_s : text; }

QString originText(ContactOrigin origin)
{
    switch (origin) {
    case ContactOrigin::builtInList:
        return u"liste fournie avec l’application"_s;
    case ContactOrigin::addedByHand:
        return u"ajouté à la main"_s;
    case ContactOrigin::import:
        return u"classeur importé"_s;
    }
    Q_UNREACHABLE();
}

std::vector<DossierLine> linesOn(const Prospect &contact, const QString &department)
{
    return {{u"Nom"_s, contact.label},
            {u"Téléphone"_s, orNone(contact.phone)},
            {u"Adresse e-mail"_s, orNone(contact.email.value_or(QString()))},
            {u"Département"_s, department},
            {u"Métier"_s, orNone(contact.profession.value_or(QString()))}};
}

DossierSection identity(const ContactDossier &dossier)
{
    const Prospect &contact = dossier.contact;
    const QString department = contact.department.isEmpty()
                                   ? u"aucun"_s
                                   : contact.department + u" – "_s + dossier.departmentName;
    DossierSection section{u"Coordonnées"_s, linesOn(contact, department)};
    section.lines.push_back({u"Identifiant"_s, contact.id});
    return section;
}

DossierSection origin(const ContactDossier &dossier)
{
    DossierSection section{u"Provenance"_s,
                           {{u"Origine"_s, originText(dossier.origin)},
                            {u"Date d’arrivée"_s, u"l’application ne l’enregistre pas"_s}}};
    if (dossier.addressFromImport)
        section.lines.push_back({u"Adresse apportée par un import"_s, *dossier.addressFromImport});
    return section;
}

/// How it came, where it was changed since.
DossierSection firstForm(const Prospect &first)
{
    return {u"À l’origine, avant modification"_s, linesOn(first, orNone(first.department))};
}

DossierSection refusal(const ContactDossier &dossier)
{
    DossierSection section{u"Demande STOP"_s,
                           {{u"Ne veut plus de message"_s, yesOrNo(dossier.isStopped)}}};
    if (dossier.isStopped)
        section.lines.push_back({u"Date de la demande"_s, u"l’application ne l’enregistre pas"_s});
    section.lines.push_back({u"Dans « Numéros à ne pas contacter »"_s, yesOrNo(dossier.isListed)});
    return section;
}

DossierSection sends(const ContactDossier &dossier, Channel channel, const QTimeZone &zone)
{
    const DossierSends &sends = dossier.channels[std::size_t(channel)];
    DossierSection section{channelRecords(channel).words.many,
                           {{u"Marqué envoyé"_s, yesOrNo(sends.isMarked)},
                            {u"Coché pour le prochain envoi"_s, yesOrNo(sends.isTicked)}}};
    if (channelRecords(channel).monthly)
        section.lines.push_back(
            {u"Mois où le quota le compte"_s, orNone(dossier.quotaMonths.join(u", "_s))});
    section.lines.push_back({u"Envois enregistrés"_s, QString::number(sends.history.size())});
    for (const Instant instant : sends.history)
        section.lines.push_back({{}, shownMoment(instant, zone)});
    return section;
}

DossierSection message(const ContactDossier &dossier, Channel channel)
{
    const EmailTemplate &text = dossier.channels[std::size_t(channel)].message;
    DossierSection section{u"Modèle %1 attribué"_s.arg(channelRecords(channel).words.ofOne),
                           {{u"Titre"_s, text.title}}};
    if (channelRecords(channel).hasSubject)
        section.lines.push_back({u"Objet"_s, text.subject});
    section.lines.push_back({{}, text.body});
    return section;
}

DossierSection attachment(const ContactDossier &dossier)
{
    if (dossier.attachment.isEmpty())
        return {u"Fichier joint"_s, {{{}, u"aucun"_s}}};
    const QString state =
        dossier.attachmentIsThere ? u"présent"_s : u"introuvable : déplacé ou supprimé"_s;
    return {u"Fichier joint"_s, {{u"Chemin"_s, dossier.attachment}, {u"État"_s, state}}};
}

} // namespace

std::vector<DossierSection> dossierSections(const ContactDossier &dossier, const QTimeZone &zone)
{
    std::vector<DossierSection> sections{identity(dossier), origin(dossier)};
    if (dossier.first)
        sections.push_back(firstForm(*dossier.first));
    sections.push_back(refusal(dossier));
    sections.push_back({u"Commentaire"_s, {{{}, orNone(dossier.comment)}}});
    for (const Channel channel : allChannels)
        sections.push_back(sends(dossier, channel, zone));
    for (const Channel channel : allChannels)
        sections.push_back(message(dossier, channel));
    sections.push_back(attachment(dossier));
    return sections;
}

} // namespace quenoria
