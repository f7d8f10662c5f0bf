#include "ui/queue/contact_list_view.h"

#include "ui/kit/plain_text.h"
#include "ui/kit/symbol.h"
#include "ui/queue/run_report.h"

#include <QBoxLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QTreeWidget>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

constexpr QSize sheetSize{640, 480};
constexpr int labelWidth = 330;
constexpr int rowPadding = 12;
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
    const int rowHeight = tree->fontMetrics().height() + rowPadding;
    tree->setMinimumHeight(rowHeight * (1 + rowsInSight));
    QList<QTreeWidgetItem *> items;
    for (const ContactLine &line : list.lines) {
        auto *item = new QTreeWidgetItem({oneLine(line.label), oneLine(line.words)});
        if (!line.symbolName.isEmpty())
            item->setIcon(1, symbol(line.symbolName, line.tint));
        item->setData(0, Qt::ToolTipRole, tipText(line.label));
        item->setData(1, Qt::ToolTipRole, tipText(line.words));
        item->setData(0, Qt::UserRole, line.id);
        item->setSizeHint(0, {0, rowHeight});
        if (!list.action.isEmpty())
            item->setCheckState(0, Qt::Checked);
        items << item;
    }
    tree->addTopLevelItems(items);
    return tree;
}

} // namespace

ContactListView::ContactListView(const NamedContacts &list, QWidget *parent)
    : Sheet(list.title, sheetSize, parent), m_tree(makeTree(list))
{
    addHeader(list.title, list.note);
    column()->addWidget(m_tree, 1);
    m_tree->setFocus();
    if (!list.action.isEmpty())
        addButton(list.action);
}

/// Only a press of the button itself does it, no Enter wherever the focus is.
void ContactListView::addButton(const QString &text)
{
    auto *button = new QPushButton;
    button->setAutoDefault(false);
    const auto refresh = [this, button, text] {
        const qsizetype count = ticked().size();
        button->setText(u"%1 (%2)"_s.arg(text, QString::number(count)));
        button->setEnabled(count > 0);
    };
    refresh();
    connect(m_tree, &QTreeWidget::itemChanged, button, refresh);
    connect(button, &QPushButton::clicked, this, [this] {
        Q_EMIT chosen(ticked());
        accept();
    });
    auto *row = new QHBoxLayout;
    row->addStretch();
    row->addWidget(button);
    footer()->addLayout(row);
}

QStringList ContactListView::ticked() const
{
    QStringList ids;
    for (int row = 0; row < m_tree->topLevelItemCount(); ++row) {
        const QTreeWidgetItem *item = m_tree->topLevelItem(row);
        if (item->checkState(0) == Qt::Checked)
            ids << item->data(0, Qt::UserRole).toString();
    }
    return ids;
}

NamedContacts listOf(const RunReport &report)
{
    NamedContacts list{report.title, report.summary(), u"Résultat"_s, {}};
    for (const ContactOutcome &contact : report.contacts)
        list.lines.push_back(lineOn(contact));
    return list;
}

} // namespace quenoria
