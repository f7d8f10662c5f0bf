#include "ui/sheets/template_export.h"

#include "platform/file_panels.h"
#include "platform/resources.h"
#include "store/refusal.h"

#include <QSaveFile>

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

Refusal write(const QString &path, const QByteArray &content)
{
    QSaveFile file(path);
    if (file.open(QIODevice::WriteOnly) && file.write(content) == content.size() && file.commit())
        return {};
    return u"Enregistrement impossible : "_s + file.errorString();
}

} // namespace

TemplateExport::TemplateExport(FilePanels &panels, const Resources &resources)
    : m_panels(panels), m_resources(resources)
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
    const Refusal refusal = write(*path, *content);
    m_resultIsError = refusal.has_value();
    m_resultMessage = refusal.value_or(u"Le modèle Excel a été enregistré."_s);
}

} // namespace quenoria
