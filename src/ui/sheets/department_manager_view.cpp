#include "ui/sheets/department_manager_view.h"

#include "store/prospect_store.h"
#include "ui/kit/form.h"
#include "ui/kit/plain_text.h"
#include "ui/kit/status_label.h"

#include <QBoxLayout>
#include <QFontDatabase>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeWidget>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

constexpr int codeFieldWidth = 150;
constexpr int codeColumnWidth = 70;
constexpr int rowPadding = 12;
constexpr int fieldPadding = 24;

QFont codeFont()
{
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font.setBold(true);
    return font;
}

QSize codeSize()
{
    const QFontMetrics metrics(codeFont());
    return {qMax(codeColumnWidth, metrics.horizontalAdvance(u"0000"_s)),
            metrics.height() + rowPadding};
}

} // namespace

DepartmentManagerView::DepartmentManagerView(ProspectStore &store, QWidget *parent)
    : Sheet(u"Gérer les départements"_s, {680, 600}, parent), m_store(store),
      m_code(makeField(u"Code, ex. 75"_s)), m_name(makeField(u"Nom, ex. Paris"_s)),
      m_result(new StatusLabel), m_list(new QTreeWidget)
{
    addHeader(windowTitle(),
              u"Ajoutez librement tout département nécessaire à votre prospection."_s);
    addEntryRow();
    header()->addWidget(m_result);
    addList();
    m_code->setFocus();
    connect(&store, &ProspectStore::published, this, [this](const Change &change) {
        std::visit(Following{[this](const DepartmentsChanged &) { fillList(); },
                             Ignoring<ContactsChanged, SelectionChanged, ListReshaped,
                                      TemplatesChanged, QuotaChanged, TestNumberChanged>()},
                   change);
    });
}

void DepartmentManagerView::addEntryRow()
{
    auto *button = new QPushButton(u"Ajouter"_s);
    makeProminent(button);
    button->setDefault(true);
    enableWhenFilled(button, {m_code, m_name});
    connect(button, &QPushButton::clicked, this, &DepartmentManagerView::add);
    const int text = m_code->fontMetrics().horizontalAdvance(m_code->placeholderText());
    m_code->setFixedWidth(qMax(codeFieldWidth, text + fieldPadding));
    auto *row = new QHBoxLayout;
    row->addWidget(m_code);
    row->addWidget(m_name, 1);
    row->addWidget(button);
    header()->addLayout(row);
}

void DepartmentManagerView::addList()
{
    m_list->setAccessibleName(u"Départements"_s);
    m_list->setHeaderHidden(true);
    m_list->setColumnCount(2);
    m_list->setRootIsDecorated(false);
    m_list->setUniformRowHeights(true);
    m_list->header()->setMinimumSectionSize(codeSize().width());
    m_list->header()->resizeSection(0, codeSize().width());
    fillList();
    column()->addWidget(m_list, 1);
}

void DepartmentManagerView::add()
{
    if (const Refusal refusal = m_store.addDepartment(m_code->text(), m_name->text()))
        return m_result->setStatus(*refusal, Tint::negative);
    m_result->setStatus(u"Département ajouté."_s, Tint::positive);
    m_code->clear();
    m_name->clear();
    m_code->setFocus();
}

void DepartmentManagerView::fillList()
{
    m_list->clear();
    for (const DepartmentInfo &department : m_store.sortedDepartments()) {
        auto *row =
            new QTreeWidgetItem(m_list, {oneLine(department.code), oneLine(department.name)});
        row->setFont(0, codeFont());
        row->setSizeHint(0, codeSize());
    }
}

} // namespace quenoria
