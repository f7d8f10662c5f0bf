#include "ui/sheets/send_history_view.h"

#include "platform/clock.h"
#include "store/collection.h"
#include "ui/kit/empty_state.h"
#include "ui/kit/labels.h"
#include "ui/kit/symbol.h"
#include "ui/sheets/history_rows.h"

#include <QBoxLayout>
#include <QScrollArea>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

constexpr int symbolSide = 18;

int labelWidth(const QFontMetrics &metrics)
{
    constexpr int usual = 130;
    return qMax(usual, metrics.horizontalAdvance(u"Envoi précédent "_s));
}

QLayout *makeRow(const HistoryRow &row, bool newest)
{
    const QIcon icon = newest ? symbol(u"checkmark.circle.fill"_s, Tint::positive)
                              : symbol(u"clock.fill"_s, Tint::secondary);
    TextLabel *label = makeLabel(row.label);
    label->setFixedWidth(labelWidth(label->fontMetrics()));
    label->setTextInteractionFlags(Qt::TextSelectableByMouse); // laid out as the date is
    TextLabel *date = makeLabel(row.date);
    date->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    auto *line = new QHBoxLayout;
    line->setSpacing(8);
    line->addWidget(new SymbolView(icon, symbolSide));
    line->addWidget(label);
    line->addWidget(date, 1);
    return line;
}

} // namespace

SendHistoryView::SendHistoryView(ProspectStore &store, const QTimeZone &zone,
                                 const Prospect &prospect, QWidget *parent)
    : Sheet(u"Historique des envois"_s, {720, 520}, parent), m_store(store), m_zone(zone),
      m_prospect(prospect)
{
    addHeader(windowTitle(), prospect.label);
    footer()->addWidget(makeLabel(u"Chaque clic sur « Envoyé, suivant » ajoute une nouvelle date "
                                  "et heure sans remplacer les précédentes."_s,
                                  TextStyle::footnote, Tint::secondary));
    refresh();
    connect(&store, &ProspectStore::published, this, [this](const Change &change) {
        std::visit(Following{[this](const ContactsChanged &changed) {
                                 if (changed.collection == Collection::statuses &&
                                     changed.ids.contains(m_prospect.id))
                                     refresh();
                             },
                             Ignoring<SelectionChanged, ListReshaped, TemplatesChanged,
                                      DepartmentsChanged, QuotaChanged, TestNumberChanged>()},
                   change);
    });
}

void SendHistoryView::refresh()
{
    delete m_content;
    m_content = makeContent();
    column()->addWidget(m_content, 1);
}

QWidget *SendHistoryView::makeContent() const
{
    const std::vector<HistoryRow> rows = historyRows(m_store, m_prospect, m_zone);
    if (rows.empty()) {
        return new EmptyState(u"clock"_s, u"Aucun envoi enregistré"_s,
                              u"Les prochaines confirmations d’envoi apparaîtront ici."_s);
    }
    auto *content = new QWidget;
    auto *parts = new QVBoxLayout(content);
    parts->setContentsMargins({});
    parts->addWidget(
        makeLabel(u"%1 envoi(s) enregistré(s), du plus récent au plus ancien."_s.arg(rows.size()),
                  TextStyle::headline));
    parts->addWidget(makeList(rows), 1);
    return content;
}

QWidget *SendHistoryView::makeList(const std::vector<HistoryRow> &rows) const
{
    auto *list = new QWidget;
    auto *lines = new QVBoxLayout(list);
    lines->setContentsMargins(16, 12, 16, 12);
    for (const HistoryRow &row : rows)
        lines->addLayout(makeRow(row, &row == &rows.front()));
    lines->addStretch();
    auto *area = new QScrollArea;
    area->setWidget(list);
    area->setWidgetResizable(true);
    area->viewport()->setBackgroundRole(QPalette::Base);
    list->setBackgroundRole(QPalette::Base);
    return area;
}

} // namespace quenoria
