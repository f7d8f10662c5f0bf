#include "ui/window/filter_bar.h"

#include "model/local_time.h"
#include "model/text_order.h"
#include "platform/clock.h"
#include "ui/kit/labels.h"
#include "ui/table/contact_table_model.h"
#include "ui/window/choice_popup.h"
#include "ui/window/command_bar.h"

#include <QAction>
#include <QDateTime>
#include <QHBoxLayout>
#include <QLocale>
#include <QMenu>
#include <QPushButton>

#include <array>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

constexpr int gap = 8;
constexpr int leastWidth =
    420; ///< that holds some chips; narrower, the bar takes a line of its own

struct Period {
    const char16_t *name;
    int days;
};
constexpr std::array periods{
    Period{u"Aujourd’hui", 0},        Period{u"7 derniers jours", 7},
    Period{u"30 derniers jours", 30}, Period{u"3 derniers mois", 91},
    Period{u"12 derniers mois", 365},
};

QString inFrench(int count) { return QLocale(QLocale::French).toString(count); }

QString counted(const QString &name, const IdSet &chosen)
{
    return chosen.empty() ? name + u"…"_s : u"%1 (%2)"_s.arg(name).arg(chosen.size());
}

QDate today(const Clock &clock) { return localDateTime(clock.now(), clock.zone()).date(); }

} // namespace

FilterBar::FilterBar(ContactTableModel &model, const ProspectStore &store, const Clock &clock,
                     QWidget *parent)
    : QWidget(parent), m_model(model), m_store(store), m_clock(clock),
      m_count(makeLabel({}, TextStyle::footnote, Tint::secondary)),
      m_all(new QPushButton(u"Tout afficher"_s))
{
    addTraits();
    m_departments = addChip(u"Département"_s);
    m_professions = addChip(u"Métier"_s);
    m_since = addChip(u"Contactés depuis…"_s);
    connect(m_departments, &QAction::triggered, this, &FilterBar::offerDepartments);
    connect(m_professions, &QAction::triggered, this, &FilterBar::offerProfessions);
    connect(m_since, &QAction::triggered, this, &FilterBar::offerDays);
    m_chips = new CommandBar(m_traits + QList{m_departments, m_professions, m_since},
                             CommandBar::Purpose::filters);
    setFocusProxy(m_chips);
    m_count->setWordWrap(false);
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins({});
    row->setSpacing(gap);
    row->addWidget(m_chips, 1);
    row->addWidget(m_count);
    row->addWidget(m_all);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    connect(m_all, &QPushButton::clicked, this, &FilterBar::showAllRequested);
    refresh();
}

QSize FilterBar::sizeHint() const { return {leastWidth, m_chips->sizeHint().height()}; }

QAction *FilterBar::addChip(const QString &text)
{
    auto *chip = new QAction(text, this);
    chip->setCheckable(true);
    return chip;
}

void FilterBar::addTraits()
{
    for (const ContactTrait &trait : contactTraits()) {
        QAction *chip = addChip(QString::fromUtf16(trait.name));
        const auto place = std::size_t(m_traits.size());
        connect(chip, &QAction::triggered, this, [this, place](bool on) {
            ContactFilter filter = m_model.contacts().filter();
            filter.traits[place] = on;
            m_model.setFilter(filter);
        });
        m_traits << chip;
    }
}

void FilterBar::refresh()
{
    const ContactList &contacts = m_model.contacts();
    const ContactFilter &filter = contacts.filter();
    for (qsizetype trait = 0; trait < m_traits.size(); ++trait)
        m_traits[trait]->setChecked(filter.traits[std::size_t(trait)]);
    m_departments->setChecked(!filter.departments.empty());
    m_departments->setText(counted(u"Département"_s, filter.departments));
    m_professions->setChecked(!filter.professions.empty());
    m_professions->setText(counted(u"Métier"_s, filter.professions));
    m_since->setChecked(filter.contactedSince.has_value());
    const QStringList sinceWhen =
        ContactFilter{.contactedSince = filter.contactedSince}.inWords(m_store, m_model.zone());
    m_since->setText(sinceWhen.isEmpty() ? u"Contactés depuis…"_s : sinceWhen.first());
    const bool hides = contacts.size() < contacts.total();
    m_count->setText(u"%1 sur %2"_s.arg(inFrench(contacts.size()), inFrench(contacts.total())));
    m_count->setVisible(hides);
    m_all->setVisible(hides || !filter.isEmpty());
}

QPoint FilterBar::below(const QAction *chip) const { return m_chips->below(chip); }

void FilterBar::offer(const QString &name, QAction *chip, IdSet ContactFilter::*chosen,
                      const std::map<QString, int> &counts)
{
    std::vector<ChoicePopup::Choice> choices;
    for (const auto &[value, count] : counts) {
        ContactFilter one;
        one.*chosen = {value};
        choices.push_back(
            {value, u"%1 — %2"_s.arg(one.inWords(m_store, m_model.zone()).first(), inFrench(count)),
             (m_model.contacts().filter().*chosen).contains(value)});
    }
    auto *popup = new ChoicePopup(name, choices, this);
    connect(popup, &ChoicePopup::chosen, this, [this, chosen](const IdSet &values) {
        ContactFilter changed = m_model.contacts().filter();
        changed.*chosen = values;
        m_model.setFilter(changed);
    });
    popup->openAt(below(chip));
    refresh(); // a click alone ticks the chip
}

void FilterBar::offerDepartments()
{
    offer(u"Départements"_s, m_departments, &ContactFilter::departments,
          m_model.contacts().countBy(&Prospect::department));
}

void FilterBar::offerProfessions()
{
    offer(u"Métiers"_s, m_professions, &ContactFilter::professions,
          m_model.contacts().countBy(&Prospect::profession));
}

void FilterBar::offerDays()
{
    auto *menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (const Period &period : periods)
        menu->addAction(QString::fromUtf16(period.name), this,
                        [this, days = period.days] { since(today(m_clock).addDays(-days)); });
    menu->addAction(u"Une autre date…"_s, this, &FilterBar::offerCalendar);
    if (m_model.contacts().filter().contactedSince) {
        menu->addSeparator();
        menu->addAction(u"À toute date"_s, this, [this] { since({}); });
    }
    menu->popup(below(m_since));
    refresh();
}

void FilterBar::offerCalendar()
{
    auto *popup = new DayPopup(today(m_clock), this);
    connect(popup, &DayPopup::chosen, this, &FilterBar::since);
    popup->openAt(below(m_since));
}

/// From the first moment of the day in the user's zone; an invalid day takes the filter away.
void FilterBar::since(const QDate &day)
{
    ContactFilter filter = m_model.contacts().filter();
    filter.contactedSince.reset();
    if (day.isValid())
        filter.contactedSince =
            Instant(std::chrono::milliseconds(day.startOfDay(m_model.zone()).toMSecsSinceEpoch()));
    m_model.setFilter(filter);
    refresh();
}

} // namespace quenoria
