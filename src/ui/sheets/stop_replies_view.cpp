#include "ui/sheets/stop_replies_view.h"

#include "messaging/stop_replies.h"
#include "model/local_time.h"
#include "ui/kit/empty_state.h"
#include "ui/kit/labels.h"

#include <QBoxLayout>
#include <QDateTime>
#include <QFrame>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

constexpr int rowGap = 12;
constexpr int rowPadding = 12;
constexpr int lineGap = 4;

const QString note = u"Rien ne part vers un contact qui a répondu STOP avant votre décision."_s;
const QString whatIsRead =
    u"Ne sont regardés que les SMS reçus d’un numéro de la liste après votre premier envoi à ce "
    "numéro. Rien d’autre de la messagerie n’est gardé, montré ni enregistré."_s;

QPushButton *makeDecision(const QString &text, const QString &label)
{
    auto *button = new QPushButton(text);
    button->setAutoDefault(false);
    button->setAccessibleName(text + u" : "_s + oneLine(label));
    return button;
}

} // namespace

StopRepliesView::StopRepliesView(StopReplies &replies, const QTimeZone &zone, QWidget *parent)
    : Sheet(u"Réponses STOP"_s, {640, 480}, parent), m_replies(replies), m_zone(zone)
{
    addHeader(windowTitle(), note);
    footer()->addWidget(makeLabel(whatIsRead, TextStyle::footnote, Tint::secondary));
    refresh();
    // A row is not destroyed by the press of its own button.
    connect(&replies, &StopReplies::changed, this, &StopRepliesView::refresh, Qt::QueuedConnection);
}

void StopRepliesView::refresh()
{
    delete m_content;
    const auto count = m_replies.waiting().size();
    setWindowTitle(count > 0 ? u"Réponses STOP (%1)"_s.arg(count) : u"Réponses STOP"_s);
    m_content = count > 0 ? makeContent() : makeEmptyState();
    column()->addWidget(m_content, 1);
}

QWidget *StopRepliesView::makeEmptyState() const
{
    return new EmptyState(u"hand.raised.circle.fill"_s, u"Aucune réponse STOP en attente"_s,
                          m_replies.isOn()
                              ? u"Une réponse apparaît ici dès que votre modem ou votre téléphone "
                                "la reçoit."_s
                              : u"Pour les voir arriver, cochez « Proposer les réponses STOP » "
                                "dans « Moyens d’envoi… » (menu Envois)."_s);
}

QWidget *StopRepliesView::makeContent()
{
    auto *content = new QWidget;
    auto *rows = new QVBoxLayout(content);
    rows->setContentsMargins({});
    rows->setSpacing(rowGap);
    for (const StopReply &reply : m_replies.waiting())
        rows->addWidget(makeRow(reply));
    rows->addStretch();
    return content;
}

QWidget *StopRepliesView::makeRow(const StopReply &reply)
{
    const QDateTime hour = localDateTime(reply.message.date, m_zone);
    auto *row = new QFrame;
    row->setFrameShape(QFrame::StyledPanel);
    auto *texts = new QVBoxLayout;
    texts->setSpacing(lineGap);
    texts->addWidget(makeLabel(reply.label, TextStyle::headline));
    texts->addWidget(
        makeLabel(hour.toString(u"dd/MM/yyyy 'à' HH:mm"_s), TextStyle::footnote, Tint::secondary));
    texts->addWidget(makeLabel(reply.message.text));
    QPushButton *mark = makeDecision(u"Marquer STOP"_s, reply.label);
    QPushButton *ignore = makeDecision(u"Ignorer"_s, reply.label);
    makeProminent(mark);
    auto *line = new QHBoxLayout(row);
    line->setContentsMargins(rowPadding, rowPadding, rowPadding, rowPadding);
    line->addLayout(texts, 1);
    line->addWidget(ignore, 0, Qt::AlignTop);
    line->addWidget(mark, 0, Qt::AlignTop);
    connect(mark, &QPushButton::clicked, this,
            [this, message = reply.message] { m_replies.markStopped(message); });
    connect(ignore, &QPushButton::clicked, this,
            [this, message = reply.message] { m_replies.ignore(message); });
    return row;
}

} // namespace quenoria
