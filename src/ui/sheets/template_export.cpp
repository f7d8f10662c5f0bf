#include "ui/sheets/template_export.h"

#include "platform/file_panels.h"
#include "platform/resources.h"
#include "platform/whole_file.h"

#include <array>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

const QString suffix = u"xlsx"_s;

// The later names are those of earlier versions.
const std::array resourceNames{u"Modele_Import_Contacts_Quenoria"_s,
                               u"Modele_Import_Contacts_Quenori"_s,
                               u"Modele_Import_Contacts_Pelvora"_s};

std::optional<QByteArray> readTemplate(const Resources &resources)
{
    for (const QString &name : resourceNames) {
        if (auto content = resources.read(name, suffix))
            return content;
    }
    return {};
}

} // namespace

TemplateExport::TemplateExport(FilePanels &panels, const Resources &resources, FileWriter &files)
    : m_panels(panels), m_resources(resources), m_files(files)
{
}

void TemplateExport::saveTemplate()
{
    const auto content = readTemplate(m_resources);
    if (!content) {
        m_resultIsError = true;
        m_resultMessage = u"Le modèle Excel est introuvable dans l’application."_s;
        return;
    }
    const auto path = m_panels.chooseDestination(
        {u"Enregistrer le modèle Excel"_s, resourceNames.front() + u'.' + suffix, suffix});
    if (!path)
        return;
    const auto failure = m_files.write(*path, *content);
    m_resultIsError = failure.has_value();
    m_resultMessage = failure ? u"Enregistrement impossible : "_s + *failure
                              : u"Le modèle Excel a été enregistré."_s;
}

} // namespace quenoria
