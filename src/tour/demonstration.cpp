#include "tour/demonstration.h"

#include "model/sequence.h"
#include "store/prospect_store.h"
#include "ui/window/content_view.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace quenoria {

QString demonstrationWorkbook(const Platform &platform)
{
    return QDir(platform.folders.data()).filePath(u"Contacts_Demonstration.xlsx"_s);
}

void importDemonstration(ContentView &window, const ProspectStore &store, const Platform &platform)
{
    const auto workbook = platform.resources.read(u"Contacts_Demonstration"_s, u"xlsx"_s);
    if (!workbook || !store.customProspects().empty())
        return;
    const QString copy = demonstrationWorkbook(platform);
    if (const auto failure = platform.files.write(copy, *workbook)) {
        platform.log.write(u"Le classeur de démonstration n’a pas pu être écrit : "_s + *failure);
        return;
    }
    window.importWorkbook(copy);
}

} // namespace quenoria
