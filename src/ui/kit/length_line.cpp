#include "ui/kit/length_line.h"

#include "model/contact_rules.h"
#include "model/sms_length.h"
#include "ui/kit/labels.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

constexpr int mostParts = 6; ///< that telephones and operators take without trouble
constexpr int mostNamed = 3; ///< characters that a line names
constexpr int gap = 4;
constexpr int buttonGap = 12;

QString quoted(const QString &character)
{
    const bool isBlank = character.trimmed().isEmpty();
    return isBlank ? u"l’espace insécable"_s : u"« %1 »"_s.arg(character);
}

QString reason(const QStringList &characters)
{
    if (characters.isEmpty())
        return {};
    QStringList named;
    for (const QString &character : characters.mid(0, mostNamed))
        named << quoted(character);
    named.removeDuplicates();
    const bool isOne = named.size() == 1 && characters.size() <= mostNamed;
    const QString dots = characters.size() > mostNamed ? u"…"_s : QString();
    return u"· %1%2 %3 l’écriture longue"_s.arg(named.join(u", "_s), dots,
                                                isOne ? u"impose"_s : u"imposent"_s);
}

/// "Remplacer par '" when one character stands for all that can be replaced.
QString replacementText(const QStringList &characters)
{
    QStringList plain;
    for (const QString &character : characters) {
        if (const QString likeness = withPlainCharacters(character); likeness != character)
            plain << likeness;
    }
    plain.removeDuplicates();
    if (plain.size() == 1 && !plain.constFirst().trimmed().isEmpty())
        return u"Remplacer par %1"_s.arg(plain.constFirst());
    return plain.isEmpty() ? QString() : u"Remplacer par des caractères simples"_s;
}

} // namespace

LengthLine::LengthLine(Use use, QWidget *parent)
    : QWidget(parent), m_use(use), m_parts(makeLabel({}, TextStyle::body, Tint::secondary)),
      m_count(makeLabel({}, TextStyle::body, Tint::secondary)),
      m_reason(makeLabel({}, TextStyle::body, Tint::secondary)),
      m_warning(makeLabel({}, TextStyle::body, Tint::negative)), m_replace(new QPushButton)
{
    for (QLabel *label : {m_parts, m_count})
        label->setWordWrap(false);
    m_replace->setAutoDefault(false);
    auto *row = new QHBoxLayout;
    row->setSpacing(gap);
    row->addWidget(m_parts);
    row->addWidget(m_count);
    row->addWidget(m_reason, 1);
    row->addSpacing(buttonGap);
    row->addWidget(m_replace);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins({});
    column->setSpacing(gap);
    column->addLayout(row);
    column->addWidget(m_warning);
    connect(m_replace, &QPushButton::clicked, this,
            [this] { Q_EMIT replacementChosen(withPlainCharacters(m_text)); });
    setText({});
}

void LengthLine::setText(const QString &text)
{
    m_text = text;
    const SmsLength length = smsLength(text);
    m_parts->setText(u"%1 SMS ·"_s.arg(length.parts));
    const auto count = characterCount(text);
    m_count->setText(u"%1 caractère%2"_s.arg(count).arg(count > 1 ? u"s"_s : u""_s));
    m_reason->setText(reason(length.longCharacters));
    m_warning->setText(
        u"Ce texte part en %1 SMS : bien des téléphones le recevront en morceaux."_s.arg(
            length.parts));
    m_warning->setVisible(length.parts > mostParts);
    const QString replacement =
        m_use == Use::editing ? replacementText(length.longCharacters) : QString();
    m_replace->setText(replacement);
    m_replace->setVisible(!replacement.isEmpty());
}

} // namespace quenoria
