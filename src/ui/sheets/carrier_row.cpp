#include "ui/sheets/carrier_row.h"

#include "ui/kit/form.h"
#include "ui/kit/labels.h"
#include "ui/kit/plain_text.h"
#include "ui/kit/status_label.h"

#include <QCheckBox>
#include <QClipboard>
#include <QGuiApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpressionValidator>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

constexpr int lineGap = 4;
constexpr int inset = 26; ///< of the lines under a choice, behind its mark

struct StateLook {
    const char16_t *symbol;
    Tint tint;
};

StateLook look(CarrierState state)
{
    switch (state) {
    case CarrierState::ready:
        return {u"checkmark.circle.fill", Tint::positive};
    case CarrierState::asksForPin:
        return {u"exclamationmark.triangle.fill", Tint::negative};
    case CarrierState::unavailable:
        return {u"xmark.circle.fill", Tint::secondary};
    case CarrierState::notInstalled:
        return {u"square.and.arrow.down", Tint::secondary};
    }
    return {};
}

} // namespace

CarrierRow::CarrierRow(const Carrier &carrier, QWidget *parent)
    : QWidget(parent), m_carrier(carrier), m_choice(new QRadioButton), m_state(new StatusLabel),
      m_keepPin(new QCheckBox(u"Retenir le code PIN dans le trousseau"_s)),
      m_forgetPin(new QPushButton(u"Oublier le code PIN"_s)),
      m_copy(new QPushButton(u"Copier la commande"_s)),
      m_road(makeLabel({}, TextStyle::footnote, Tint::secondary))
{
    makePinRow();
    auto *stateRow = new QHBoxLayout;
    stateRow->setContentsMargins(inset, 0, 0, 0);
    stateRow->addWidget(m_state, 1);
    for (QPushButton *button : {m_forgetPin, m_copy}) {
        button->setAutoDefault(false);
        stateRow->addWidget(button, 0, Qt::AlignTop);
    }
    auto *roadRow = new QHBoxLayout;
    roadRow->setContentsMargins(inset, 0, 0, 0);
    roadRow->addWidget(m_road);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins({});
    column->setSpacing(lineGap);
    column->addWidget(m_choice);
    column->addLayout(stateRow);
    column->addWidget(m_pinRow);
    column->addLayout(roadRow);
    connect(m_choice, &QRadioButton::clicked, this, &CarrierRow::chosen);
    connect(m_copy, &QPushButton::clicked, this,
            [this] { QGuiApplication::clipboard()->setText(m_carrier.command); });
    connect(m_forgetPin, &QPushButton::clicked, this, &CarrierRow::pinForgotten);
}

void CarrierRow::makePinRow()
{
    m_pinRow = new QWidget;
    m_pin = makeField(u"Code PIN de la carte SIM"_s);
    m_pin->setEchoMode(QLineEdit::Password);
    auto *unlock = new QPushButton(u"Déverrouiller"_s);
    unlock->setAutoDefault(false);
    unlock->setEnabled(false);
    const QRegularExpression code(u"[0-9]{4,8}"_s);
    m_pin->setValidator(new QRegularExpressionValidator(code, m_pin));
    connect(m_pin, &QLineEdit::textChanged, unlock,
            [this, unlock] { unlock->setEnabled(m_pin->hasAcceptableInput()); });
    auto *row = new QHBoxLayout;
    row->addWidget(m_pin, 1);
    row->addWidget(unlock);
    auto *column = new QVBoxLayout(m_pinRow);
    column->setContentsMargins(inset, 0, 0, 0);
    column->setSpacing(lineGap);
    column->addLayout(row);
    column->addWidget(m_keepPin);
    connect(unlock, &QPushButton::clicked, this, &CarrierRow::sendPin);
    connect(m_pin, &QLineEdit::returnPressed, this, &CarrierRow::sendPin);
}

/// The field is emptied first: a card is blocked by three wrong codes, so one press gives one try.
void CarrierRow::sendPin()
{
    const QString pin = m_pin->text();
    m_pin->clear();
    if (!pin.isEmpty())
        Q_EMIT pinTyped(pin, m_keepPin->isChecked() ? PinUse::kept : PinUse::once);
}

void CarrierRow::show(const Carrier &carrier, bool isChosen, bool isFixed)
{
    m_carrier = carrier;
    const StateLook shown = look(carrier.state);
    m_choice->setText(QString(carrier.name).replace(u'&', u"&&"_s));
    m_choice->setAccessibleDescription(carrier.words);
    m_choice->setChecked(isChosen);
    m_choice->setEnabled(!carrier.id.isEmpty() && !isFixed);
    m_road->setText(carrier.road);
    m_state->setStatus(carrier.words, shown.tint, QString::fromUtf16(shown.symbol));
    m_pinRow->setVisible(carrier.state == CarrierState::asksForPin && !isFixed);
    m_forgetPin->setVisible(carrier.keepsPin && !isFixed);
    m_copy->setVisible(!carrier.command.isEmpty());
    m_copy->setToolTip(tipText(carrier.command));
}

} // namespace quenoria
