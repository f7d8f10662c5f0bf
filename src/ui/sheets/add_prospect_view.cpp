#include "ui/sheets/add_prospect_view.h"

#include "ui/kit/status_label.h"
#include "ui/kit/symbol.h"
#include "ui/sheets/contact_form.h"
#include "ui/sheets/new_department_view.h"

#include <QBoxLayout>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace quenoria {

AddProspectView::AddProspectView(ProspectStore &store, QWidget *parent)
    : Sheet(u"Ajouter un nouveau contact"_s, {560, 500}, parent), m_store(store),
      m_error(new StatusLabel)
{
    using Row = ContactForm::Row;
    m_form = new ContactForm(store, m_fields,
                             {Row::name, Row::phone, Row::email, Row::profession, Row::department});
    auto *newDepartment =
        new QPushButton(symbol(u"plus.circle"_s), u"Créer un autre département…"_s);
    connect(newDepartment, &QPushButton::clicked, this, &AddProspectView::createDepartment);
    m_form->addRow(newDepartment);

    addTitle(windowTitle());
    column()->addWidget(m_form);
    column()->addStretch();
    footer()->addWidget(m_error);
    QPushButton *confirm = addConfirmRow(u"Ajouter"_s);
    connect(confirm, &QPushButton::clicked, this, &AddProspectView::add);
    const auto enable = [this, confirm] { confirm->setEnabled(hasPhoneOrEmail(m_fields)); };
    connect(m_form, &ContactForm::edited, confirm, enable);
    enable();
    m_form->focusFirstField();
}

bool AddProspectView::hasUnsavedInput() const { return m_fields != newContactFields(); }

void AddProspectView::createDepartment()
{
    auto *sheet = new NewDepartmentView(m_store, this);
    connect(sheet, &NewDepartmentView::created, m_form, &ContactForm::selectDepartment);
    sheet->present();
}

void AddProspectView::add()
{
    const auto &[name, commune, phone, email, department, profession] = m_fields;
    const Refusal refusal = m_store.add(name, phone, email, department, profession);
    if (!refusal)
        return accept();
    m_error->setStatus(*refusal, Tint::negative);
}

} // namespace quenoria
