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
    : QWidget(parent), m_queue(queue), m_switches(switches), m_automatic(new QCheckBox),
      m_note(new StatusLabel)
{
    auto *row = new QHBoxLayout;
    row->setSpacing(optionSpacing);
    row->addWidget(m_automatic);
    if (const auto &automatic = queue.channel().automatic) {
        m_automatic->setText(automatic->turnedOn.text);
        connect(
            m_automatic, &QCheckBox::toggled, &switches,
            [&switches, which = automatic->turnedOn.which](bool on) { switches.set(which, on); });
    }
    m_automatic->setVisible(queue.channel().automatic.has_value());
    if (queue.channel().allowance)
        addAllowance(row, *queue.channel().allowance);
    row->addStretch();
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins({});
    column->setSpacing(noteGap);
    column->addLayout(row);
    column->addWidget(m_note);
    refresh();
}

void QueueOptions::addAllowance(QBoxLayout *row, const Allowance &allowance)
{
    m_lifted = new QCheckBox(allowance.lifted.text);
    m_lifted->setToolTip(tipText(allowance.queueHelp));
    connect(m_lifted, &QCheckBox::toggled, &m_switches,
            [this, which = allowance.lifted.which](bool on) { m_switches.set(which, on); });
    m_used = makeLabel({}, TextStyle::footnote);
    m_used->setWordWrap(false);
    row->addWidget(m_lifted);
    row->addWidget(m_used);
}

void QueueOptions::refresh()
{
    m_automatic->setChecked(m_queue.isAutomatic());
    m_note->setStatus(m_queue.isAutomatic() ? m_queue.channel().automatic->note : QString(),
                      Tint::accent, u"bolt.fill"_s);
    if (!m_lifted)
        return;
    m_lifted->setChecked(m_switches.isOn(m_queue.channel().allowance->lifted.which));
    m_used->setText(m_queue.allowanceText());
    m_used->setForegroundRole(
        tintRole(m_queue.isAllowanceUsedUp() ? Tint::negative : Tint::secondary));
}

} // namespace quenoria
