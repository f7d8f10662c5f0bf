#include "app/command_line.h"

#include "tour/rehearsal.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

constexpr int misuse = 2;

Answer refuse(const QString &reason)
{
    return {reason + u"\nEssayez « quenoria --help ».\n"_s, misuse};
}

/// A relative path is meant from where the program was started, once and for all.
QString absolute(const QString &path)
{
    return QDir::cleanPath(QDir::current().absoluteFilePath(path));
}

std::optional<QString> folderOf(const QCommandLineParser &parser, const QCommandLineOption &option)
{
    if (!parser.isSet(option))
        return std::nullopt;
    return absolute(parser.value(option));
}

/// What is wrong with an option that only a demonstration takes; nothing when all is well.
std::optional<QString> demonstrationFault(const QCommandLineParser &parser)
{
    const bool demo = parser.isSet(u"demo"_s);
    if (parser.isSet(u"tour"_s) && !demo)
        return u"La visite guidée n’existe qu’en démonstration : ajoutez --demo."_s;
    if (!parser.isSet(u"repetition"_s))
        return std::nullopt;
    if (!demo)
        return u"La répétition n’existe qu’en démonstration : ajoutez --demo."_s;
    const QString rehearsal = parser.value(u"repetition"_s);
    if (!rehearsalNames().contains(rehearsal))
        return u"Répétition inconnue : %1"_s.arg(rehearsal);
    return std::nullopt;
}

/// The same for all that was given.
std::optional<QString> argumentFault(const QCommandLineParser &parser)
{
    const QStringList workbooks = parser.positionalArguments();
    if (workbooks.size() > 1 || (!workbooks.isEmpty() && parser.isSet(u"tour"_s)))
        return u"Argument inattendu : %1"_s.arg(workbooks.last());
    if (workbooks.contains(QString()))
        return u"Le nom du classeur est vide."_s;
    for (const QString &folder : {u"data-dir"_s, u"tour"_s}) {
        if (parser.isSet(folder) && parser.value(folder).isEmpty())
            return u"Le dossier de --%1 est vide."_s.arg(folder);
    }
    const QString look = parser.value(u"appearance"_s);
    if (look != u"auto"_s && look != u"light"_s && look != u"dark"_s)
        return u"Apparence inconnue : %1"_s.arg(look);
    return demonstrationFault(parser);
}

} // namespace

std::variant<StartOptions, Answer> parseCommandLine(const QStringList &arguments)
{
    const QCommandLineOption demo(u"demo"_s, u"Contacts fictifs ; rien ne quitte l’ordinateur."_s);
    const QCommandLineOption data(u"data-dir"_s, u"Dossier de données à utiliser."_s, u"DOSSIER"_s);
    const QCommandLineOption tour(
        u"tour"_s, u"Avec --demo : visite guidée, images dans ce dossier."_s, u"DOSSIER"_s);
    const QCommandLineOption rehearsal(
        u"repetition"_s,
        u"Avec --demo : envoie aussitôt à chaque contact, par sms, email ou tout."_s, u"CANAL"_s);
    const QCommandLineOption appearance(
        u"appearance"_s, u"light, dark ou auto (celle du bureau)."_s, u"APPARENCE"_s, u"auto"_s);
    QCommandLineParser parser;
    parser.setApplicationDescription(
        u"Suivi de prospects et files d’envoi SMS et e-mail, sans intermédiaire."_s);
    const QCommandLineOption help = parser.addHelpOption();
    const QCommandLineOption version = parser.addVersionOption();
    parser.addOptions({demo, data, tour, rehearsal, appearance});
    parser.addPositionalArgument(u"classeur"_s, u"Classeur .xlsx à importer dans la fenêtre."_s,
                                 u"[CLASSEUR]"_s);

    if (!parser.parse(arguments))
        return refuse(parser.errorText());
    if (parser.isSet(help))
        return Answer{parser.helpText()};
    if (parser.isSet(version))
        return Answer{u"Quenoria %1\n"_s.arg(QCoreApplication::applicationVersion())};
    if (const auto fault = argumentFault(parser))
        return refuse(*fault);

    StartOptions options{
        parser.isSet(demo), folderOf(parser, data), folderOf(parser, tour), {}, {}, {}};
    for (const QString &workbook : parser.positionalArguments())
        options.workbook = absolute(workbook);
    if (parser.isSet(rehearsal))
        options.rehearsal = parser.value(rehearsal);
    if (parser.value(appearance) != u"auto"_s)
        options.darkAppearance = parser.value(appearance) == u"dark"_s;
    return options;
}

} // namespace quenoria
