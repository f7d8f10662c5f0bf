#include "ui/sheets/new_department_view.h"

#include "store/prospect_store.h"
#include "ui/kit/form.h"
#include "ui/kit/status_label.h"

#include <QBoxLayout>
#include <QLineEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace quenoria {

NewDepartmentView::NewDepartmentView(ProspectStore &store, QWidget *parent)
    : Sheet(u"Créer un département"_s, {520, 300}, parent), m_store(store),
      m_code(makeField(u"Code du département, par exemple 75"_s)),
      m_name(makeField(u"Nom du département, par exemple Paris"_s)), m_error(new StatusLabel)
{
    addTitle(windowTitle());
    column()->addWidget(m_code);
    column()->addWidget(m_name);
    column()->addStretch();
    footer()->addWidget(m_error);
    QPushButton *confirm = addConfirmRow(u"Créer"_s);
    enableWhenFilled(confirm, {m_code, m_name});
    connect(confirm, &QPushButton::clicked, this, &NewDepartmentView::create);
}

bool NewDepartmentView::hasUnsavedInput() const
{
    return !m_code->text().isEmpty() || !m_name->text().isEmpty();
}

void NewDepartmentView::create()
{
    const QString code = m_code->text().trimmed().toUpper();
    const Refusal refusal = m_store.addDepartment(code, m_name->text());
    if (refusal)
        return m_error->setStatus(*refusal, Tint::negative);
    Q_EMIT created(code);
    accept();
}

} // namespace quenoria
