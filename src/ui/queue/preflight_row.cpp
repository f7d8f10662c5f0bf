#include "ui/queue/preflight_row.h"

#include "ui/kit/flow_layout.h"
#include "ui/kit/labels.h"
#include "ui/kit/symbol.h"
#include "ui/queue/batch_queue.h"
#include "ui/queue/contact_list_view.h"

#include <QPushButton>

#include <array>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

constexpr int gap = 8;

const QString fromThisRunOnly =
    u"Ceux que vous retirez restent cochés dans la liste : seul cet envoi les laisse de côté."_s;

/// What a preflight may find, in the words of its button.
struct Kind {
    QStringList Preflight::*ids;
    QString one;
    QString many;
};

const std::array<Kind, 5> kinds{{
    {&Preflight::recent, u"contacté il y a moins de 30 jours"_s,
     u"contactés il y a moins de 30 jours"_s},
    {&Preflight::unreachable, u"sans numéro ou adresse valide"_s,
     u"sans numéro ou adresse valide"_s},
    {&Preflight::withoutFile, u"avec un fichier manquant"_s, u"avec un fichier manquant"_s},
    {&Preflight::unfinished, u"avec un texte à compléter"_s, u"avec un texte à compléter"_s},
    {&Preflight::beyondQuota, {}, {}},
}};

QString quotaText(int before)
{
    if (before == 0)
        return u"le quota du mois refusera"_s;
    return u"après le %1%2, le quota du mois refusera"_s.arg(QString::number(before),
                                                             before == 1 ? u"er"_s : u"e"_s);
}

TextLabel *makeNote(QWidget *row)
{
    TextLabel *note = makeLabel({}, TextStyle::footnote, Tint::secondary);
    note->setWordWrap(false);
    note->setParent(row);
    return note;
}

} // namespace

PreflightRow::PreflightRow(BatchQueue &queue, QWidget *parent)
    : QWidget(parent), m_queue(&queue), m_end(makeNote(this)), m_hour(makeNote(this))
{
    auto *line = new FlowLayout(gap, this);
    line->addWidget(m_end);
    line->addWidget(m_hour);
    for (int place = 0; place < int(kinds.size()); ++place) {
        auto *button = new QPushButton(symbol(u"info.circle"_s, Tint::secondary), {});
        button->setAutoDefault(false);
        button->hide();
        connect(button, &QPushButton::clicked, this,
                [this, place] { list(m_findings[std::size_t(place)]); });
        line->addWidget(button);
        m_buttons.push_back(button);
    }
    m_look.setSingleShot(true);
    m_look.callOnTimeout(this, &PreflightRow::look);
}

void PreflightRow::look()
{
    if (!m_queue)
        return;
    m_findings = findings();
    for (std::size_t place = 0; place < m_buttons.size(); ++place) {
        const bool isFound = place < m_findings.size();
        if (isFound)
            m_buttons[place]->setText(m_findings[place].text);
        m_buttons[place]->setVisible(isFound);
    }
    const QStringList &ids = m_queue->state().queueIDs;
    const bool isAutomatic = m_queue->isAutomatic() && !ids.isEmpty();
    m_end->setText(isAutomatic ? endText(int(ids.size())) : QString());
    m_end->setVisible(isAutomatic);
    m_hour->setText(u"hors des heures d’usage (soir, dimanche, jour férié)"_s);
    m_hour->setVisible(isAutomatic && m_queue->outlook().isUnusualHour());
    setVisible(!m_findings.empty() || isAutomatic);
}

QString PreflightRow::endText(int contacts) const
{
    const QDateTime end = m_queue->outlook().end(contacts);
    const bool isToday = end.date() == m_queue->outlook().now().date();
    return u"se terminera "_s +
           end.toString(isToday ? u"'vers' HH:mm"_s : u"'le' dd/MM 'vers' HH:mm"_s);
}

/// Of those that can still be left out.
std::vector<PreflightRow::Finding> PreflightRow::findings() const
{
    const QueueState &state = m_queue->state();
    const Preflight found = m_queue->outlook().found(state.queueIDs);
    std::vector<Finding> findings;
    for (const Kind &kind : kinds) {
        QStringList ids = found.*kind.ids;
        ids.removeOne(m_queue->engaged());
        if (ids.isEmpty())
            continue;
        const QString text = kind.ids == &Preflight::beyondQuota
                                 ? quotaText(state.completedCount + found.beforeQuota)
                                 : u"%1 %2"_s.arg(QString::number(ids.size()),
                                                  ids.size() > 1 ? kind.many : kind.one);
        findings.push_back({text, ids});
    }
    return findings;
}

void PreflightRow::list(const Finding &finding)
{
    if (!m_queue)
        return;
    QString title = finding.text;
    title.front() = title.front().toUpper();
    NamedContacts list{title, fromThisRunOnly, u"Dernier contact"_s, {}, u"Retirer de cet envoi"_s};
    const RunOutlook &outlook = m_queue->outlook();
    for (const QString &id : finding.ids) {
        if (const Prospect *contact = outlook.store().prospect(id))
            list.lines.push_back({contact->label, outlook.lastContact(*contact), {}, {}, id});
    }
    auto *view = new ContactListView(list, window());
    connect(view, &ContactListView::chosen, m_queue, &BatchQueue::remove);
    view->present();
}

} // namespace quenoria
