#include "ui/sheets/sms_section.h"

#include "messaging/messages_script.h"
#include "messaging/send_desk.h"
#include "ui/kit/labels.h"
#include "ui/kit/status_label.h"
#include "ui/sheets/carrier_row.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QPushButton>
#include <QRadioButton>
#include <QTime>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

constexpr int rowGap = 16;

const QString testText = u"Essai de Quenoria : ce SMS est bien parti."_s;
const QString stopNote =
    u"Les SMS reçus d’un numéro de la liste, après votre premier envoi à ce numéro, qui commencent "
    "par STOP vous sont proposés dans « Réponses STOP ». Rien d’autre de la messagerie n’est "
    "gardé, "
    "montré ni enregistré."_s;
const QString isUnlocked = u"La carte SIM est déverrouillée."_s;
const QString testNote = u"« Tester » envoie un SMS d’essai au numéro de test : %1."_s;

} // namespace

SmsSection::SmsSection(Carriers &carriers, SendDesk &desk, QWidget *parent)
    : SendingSection(u"SMS"_s, parent), m_carriers(carriers), m_store(desk.store()),
      m_list(new QVBoxLayout),
      m_none(new QRadioButton(u"Aucun : les SMS automatiques ne partent pas"_s)),
      m_choices(new QButtonGroup(this)), m_test(new QPushButton(u"Tester"_s)),
      m_offer(new QCheckBox(u"Proposer les réponses STOP"_s))
{
    m_list->setSpacing(rowGap);
    column()->addLayout(m_list);
    column()->addWidget(m_none);
    m_none->setVisible(!carriers.isFixed());
    m_choices->addButton(m_none);
    connect(m_none, &QRadioButton::clicked, this, [this] { m_carriers.choose({}); });
    addTest();
    addStopReplies(desk);
    connect(&carriers, &Carriers::changed, this, &SmsSection::refresh);
    connect(&carriers, &Carriers::unlocked, this, &SmsSection::showUnlocked);
    connect(&carriers, &Carriers::pinKept, this, &SmsSection::showPinKept);
    refresh();
    carriers.watch();
}

void SmsSection::addTest()
{
    auto *row = new QHBoxLayout;
    row->addWidget(
        makeLabel(testNote.arg(m_store.testNumber()), TextStyle::footnote, Tint::secondary), 1);
    row->addWidget(m_test, 0, Qt::AlignTop);
    column()->addLayout(row);
    column()->addWidget(outcome());
    m_test->setAutoDefault(false);
    m_test->setAccessibleName(u"Tester le SMS"_s);
    connect(m_test, &QPushButton::clicked, this, &SmsSection::test);
}

void SmsSection::addStopReplies(SendDesk &desk)
{
    m_offer->setChecked(desk.stopReplies().isOn());
    m_offer->setAccessibleDescription(stopNote);
    column()->addWidget(m_offer);
    column()->addWidget(makeLabel(stopNote, TextStyle::footnote, Tint::secondary));
    connect(m_offer, &QCheckBox::toggled, &desk.stopReplies(), &StopReplies::setOn);
}

void SmsSection::refresh()
{
    const std::vector<Carrier> found = m_carriers.found();
    const auto isShownBy = [](const Carrier &carrier, const CarrierRow *row) {
        return carrier.id == row->id();
    };
    if (!std::ranges::equal(found, m_rows, isShownBy))
        rebuild(found);
    const QString chosen = m_carriers.chosen();
    for (std::size_t each = 0; each < found.size(); ++each)
        m_rows[each]->show(found[each], !chosen.isEmpty() && found[each].id == chosen,
                           m_carriers.isFixed());
    m_none->setChecked(chosen.isEmpty());
    m_test->setEnabled(!chosen.isEmpty());
}

void SmsSection::rebuild(const std::vector<Carrier> &found)
{
    for (CarrierRow *row : m_rows)
        row->deleteLater();
    m_rows.clear();
    for (const Carrier &carrier : found) {
        auto *row = new CarrierRow(carrier);
        m_list->addWidget(row);
        m_rows.push_back(row);
        m_choices->addButton(row->choice());
        follow(row);
    }
    orderKeyboard();
}

/// Puts the rows, which came last, where they stand: after what precedes the section.
void SmsSection::orderKeyboard()
{
    QWidgetList section;
    for (const CarrierRow *row : m_rows)
        section << row->findChildren<QWidget *>();
    section << m_none << m_test << m_offer;
    section.removeIf([](const QWidget *each) { return !(each->focusPolicy() & Qt::TabFocus); });
    const auto isPassed = [&section](QWidget *each) {
        return section.contains(each) || !(each->focusPolicy() & Qt::TabFocus);
    };
    QWidget *before = m_none->previousInFocusChain();
    while (before != m_none && isPassed(before))
        before = before->previousInFocusChain();
    if (before != m_none)
        setTabOrder(before, section.constFirst());
    for (qsizetype each = 1; each < section.size(); ++each)
        setTabOrder(section[each - 1], section[each]);
}

void SmsSection::follow(CarrierRow *row)
{
    connect(row, &CarrierRow::chosen, this, [this, row] { m_carriers.choose(row->id()); });
    connect(row, &CarrierRow::pinTyped, this, [this, row](const QString &pin, PinUse use) {
        outcome()->setStatus(u"Déverrouillage…"_s, Tint::secondary);
        m_carriers.unlock(row->id(), pin, use);
    });
    connect(row, &CarrierRow::pinForgotten, this, [this, row] {
        outcome()->setStatus(u"Le code PIN n’est plus retenu."_s, Tint::secondary);
        m_carriers.forgetPin(row->id());
    });
}

void SmsSection::test()
{
    tryOut({u"Envoi du SMS d’essai…"_s, u"Le SMS d’essai n’est pas parti."_s, [this] {
                return m_carriers.send({{messagingHandle(m_store.testNumber())}, {}, testText, {}});
            }});
}

void SmsSection::tellAccepted()
{
    outcome()->setStatus(u"SMS d’essai : %1 à %2."_s.arg(m_carriers.handover(),
                                                         QTime::currentTime().toString(u"HH:mm"_s)),
                         Tint::positive, u"checkmark.circle.fill"_s);
}

void SmsSection::showUnlocked(const std::optional<QString> &refusal)
{
    if (refusal)
        return outcome()->setStatus(*refusal, Tint::negative, u"exclamationmark.triangle.fill"_s);
    outcome()->setStatus(isUnlocked, Tint::positive, u"checkmark.circle.fill"_s);
}

void SmsSection::showPinKept(bool isKept)
{
    if (isKept)
        return outcome()->setStatus(isUnlocked + u" Le code PIN est dans le trousseau."_s,
                                    Tint::positive, u"checkmark.circle.fill"_s);
    outcome()->setStatus(isUnlocked + u" Aucun trousseau n’est ouvert sur ce bureau : le code PIN "
                                      "n’est pas retenu."_s,
                         Tint::negative, u"exclamationmark.triangle.fill"_s);
}

} // namespace quenoria
