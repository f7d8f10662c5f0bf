#include "ui/queue/contact_list_view.h"

#include "ui/kit/plain_text.h"
#include "ui/kit/symbol.h"
#include "ui/queue/run_report.h"

#include <QBoxLayout>
#include <QHeaderView>
#include <QTreeWidget>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

constexpr QSize sheetSize{640, 480};
constexpr int labelWidth = 330;
constexpr int rowsInSight = 5; ///< at least

using Kind = ContactOutcome::Kind;

ContactLine lineOn(const ContactOutcome &contact)
{
    const QString outcome = inWords(contact.kind);
    const QString words =
        contact.words.isEmpty() ? outcome : u"%1 : %2"_s.arg(outcome, contact.words);
    switch (contact.kind) {
    case Kind::sent:
        return {contact.label, words, u"checkmark.circle.fill"_s, Tint::positive};
    case Kind::refused:
        return {contact.label, words, u"xmark.circle.fill"_s, Tint::negative};
    case Kind::inDoubt:
        return {contact.label, words, u"questionmark.circle"_s, Tint::negative};
    case Kind::skipped:
    case Kind::pending:
        break;
    }
    return {contact.label, words, u"clock"_s, Tint::secondary};
}

QTreeWidget *makeTree(const NamedContacts &list)
{
    auto *tree = new QTreeWidget;
    tree->setAccessibleName(list.title);
    tree->setHeaderLabels({u"Contact"_s, list.wordsHeader});
    tree->setRootIsDecorated(false);
    tree->setUniformRowHeights(true);
    tree->setColumnWidth(0, labelWidth);
    tree->header()->setSectionsMovable(false);
    tree->setMinimumHeight(tree->fontMetrics().height() * 2 * rowsInSight);
    QList<QTreeWidgetItem *> items;
    for (const ContactLine &line : list.lines) {
        auto *item = new QTreeWidgetItem({oneLine(line.label), oneLine(line.words)});
        if (!line.symbolName.isEmpty())
            item->setIcon(1, symbol(line.symbolName, line.tint));
        item->setData(0, Qt::ToolTipRole, tipText(line.label));
        item->setData(1, Qt::ToolTipRole, tipText(line.words));
        items << item;
    }
    tree->addTopLevelItems(items);
    return tree;
}

} // namespace

ContactListView::ContactListView(const NamedContacts &list, QWidget *parent)
    : Sheet(list.title, sheetSize, parent)
{
    addHeader(list.title, list.note);
    QTreeWidget *tree = makeTree(list);
    column()->addWidget(tree, 1);
    tree->setFocus();
}

NamedContacts listOf(const RunReport &report)
{
    NamedContacts list{report.title, report.summary(), u"Résultat"_s, {}};
    for (const ContactOutcome &contact : report.contacts)
        list.lines.push_back(lineOn(contact));
    return list;
}

} // namespace quenoria
