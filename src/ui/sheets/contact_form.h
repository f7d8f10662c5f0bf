#pragma once

#include "ui/kit/form.h"
#include "ui/sheets/contact_fields.h"

#include <initializer_list>

namespace quenoria {

class ChoicePicker;

/// The grouped fields of one contact, bound to the values that they edit. The caller names the
/// rows that it wants, in order.
class ContactForm : public Form {
    Q_OBJECT

public:
    enum class Row { name, commune, phone, email, profession, department };

    /// The fields outlive the form.
    ContactForm(ProspectStore &store, ContactFields &fields, std::initializer_list<Row> rows);

    void focusFirstField();
    void selectDepartment(const QString &code);

Q_SIGNALS:
    void edited();

private:
    void addTextRow(const QString &label, QString &value);
    void addDepartmentRow();
    void fillDepartments();

    ProspectStore &m_store;
    ContactFields &m_fields;
    ChoicePicker *m_departments = nullptr;
};

} // namespace quenoria
