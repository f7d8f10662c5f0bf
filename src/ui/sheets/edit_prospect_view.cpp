#include "ui/sheets/edit_prospect_view.h"

#include "ui/kit/status_label.h"
#include "ui/sheets/contact_form.h"

#include <QBoxLayout>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace quenoria {

EditProspectView::EditProspectView(ProspectStore &store, const Prospect &prospect, QWidget *parent)
    : Sheet(u"Modifier le contact"_s, {620, 570}, parent), m_store(store), m_prospect(prospect),
      m_fields(contactFields(prospect)), m_error(new StatusLabel)
{
    using Row = ContactForm::Row;
    auto *form = new ContactForm(
        store, m_fields,
        {Row::name, Row::commune, Row::department, Row::profession, Row::phone, Row::email});
    addHeader(windowTitle(), u"Les historiques SMS et e-mail seront conservés."_s);
    column()->addWidget(form);
    column()->addStretch();
    footer()->addWidget(m_error);
    connect(addConfirmRow(u"Enregistrer les modifications"_s), &QPushButton::clicked, this,
            &EditProspectView::save);
    form->focusFirstField();
}

bool EditProspectView::hasUnsavedInput() const { return m_fields != contactFields(m_prospect); }

void EditProspectView::save()
{
    const Refusal refusal = m_store.update(m_prospect, m_fields);
    if (!refusal)
        return accept();
    m_error->setStatus(*refusal, Tint::negative, u"exclamationmark.triangle.fill"_s);
}

} // namespace quenoria
