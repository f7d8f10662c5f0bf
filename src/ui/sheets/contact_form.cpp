#include "ui/sheets/contact_form.h"

#include "ui/sheets/choice_picker.h"

#include <QLineEdit>

#include <array>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

struct TextRow {
    ContactForm::Row row;
    const char16_t *label;
    QString ContactFields::*value;
};

constexpr std::array textRows{
    TextRow{ContactForm::Row::name, u"Nom de l’entreprise ou du contact", &ContactFields::name},
    TextRow{ContactForm::Row::commune, u"Commune", &ContactFields::commune},
    TextRow{ContactForm::Row::phone, u"Numéro de téléphone", &ContactFields::phone},
    TextRow{ContactForm::Row::email, u"Adresse e-mail", &ContactFields::email},
    TextRow{ContactForm::Row::profession, u"Métier", &ContactFields::profession},
};

} // namespace

ContactForm::ContactForm(ProspectStore &store, ContactFields &fields,
                         std::initializer_list<Row> rows)
    : m_store(store), m_fields(fields)
{
    for (const Row row : rows) {
        const auto *text = std::ranges::find(textRows, row, &TextRow::row);
        if (text != textRows.end())
            addTextRow(QString::fromUtf16(text->label), fields.*text->value);
        else
            addDepartmentRow();
    }
}

void ContactForm::focusFirstField() { findChild<QLineEdit *>()->setFocus(); }

void ContactForm::selectDepartment(const QString &code)
{
    m_fields.department = code;
    fillDepartments();
}

void ContactForm::addTextRow(const QString &label, QString &value)
{
    QLineEdit *field = addField(label);
    field->setText(value);
    connect(field, &QLineEdit::textChanged, this, [this, &value](const QString &text) {
        value = text;
        Q_EMIT edited();
    });
}

void ContactForm::addDepartmentRow()
{
    const QString label = u"Département"_s;
    m_departments = new ChoicePicker(label);
    addRow(label, m_departments);
    fillDepartments();
    connect(m_departments, &ChoicePicker::picked, this,
            [this](const QString &code) { m_fields.department = code; });
    connect(&m_store, &ProspectStore::published, this, [this](const Change &change) {
        std::visit(Following{[this](const DepartmentsChanged &) { fillDepartments(); },
                             Ignoring<ContactsChanged, SelectionChanged, ListReshaped,
                                      TemplatesChanged, QuotaChanged, TestNumberChanged>()},
                   change);
    });
}

void ContactForm::fillDepartments()
{
    std::vector<Choice> choices;
    for (const DepartmentInfo &department : m_store.sortedDepartments())
        choices.push_back({department.code, u"%1 (%2)"_s.arg(department.name, department.code)});
    m_departments->setChoices(choices, m_fields.department);
}

} // namespace quenoria
