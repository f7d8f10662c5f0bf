#include "ui/queue/queue_options.h"

#include "ui/kit/labels.h"
#include "ui/kit/status_label.h"
#include "ui/kit/switches.h"
#include "ui/queue/batch_queue.h"

#include <QCheckBox>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

constexpr int optionSpacing = 20;
constexpr int noteGap = 8;

} // namespace

QueueOptions::QueueOptions(const BatchQueue &queue, Switches &switches, QWidget *parent)
    : QWidget(parent), m_queue(queue), m_switches(switches),
      m_automatic(new QCheckBox(queue.channel().automaticSwitch)), m_note(new StatusLabel)
{
    auto *row = new QHBoxLayout;
    row->setSpacing(optionSpacing);
    row->addWidget(m_automatic);
    if (queue.channel().hasQuota)
        addQuota(row);
    row->addStretch();
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins({});
    column->setSpacing(noteGap);
    column->addLayout(row);
    column->addWidget(m_note);
    connect(m_automatic, &QCheckBox::toggled, &switches, queue.channel().setAutomatic);
    refresh();
}

void QueueOptions::addQuota(QBoxLayout *row)
{
    m_freePro = new QCheckBox(u"Forfait Free Pro"_s);
    m_freePro->setToolTip(tipText(u"Coché : envois non limités par l’application. Décoché : 250 "
                                  "destinataires distincts par mois."_s));
    connect(m_freePro, &QCheckBox::toggled, &m_switches, &Switches::setFreeProPlan);
    m_quota = makeLabel({}, TextStyle::footnote);
    m_quota->setWordWrap(false);
    row->addWidget(m_freePro);
    row->addWidget(m_quota);
}

void QueueOptions::refresh()
{
    m_automatic->setChecked(m_queue.isAutomatic());
    m_note->setStatus(m_queue.isAutomatic() ? m_queue.channel().automaticNote : QString(),
                      Tint::accent, u"bolt.fill"_s);
    if (!m_freePro)
        return;
    m_freePro->setChecked(m_switches.freeProPlan());
    m_quota->setText(m_queue.quotaText());
    m_quota->setForegroundRole(
        tintRole(m_queue.isQuotaReached() ? Tint::negative : Tint::secondary));
}

} // namespace quenoria
