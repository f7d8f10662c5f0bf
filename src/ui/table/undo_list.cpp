#include "ui/table/undo_list.h"

#include "model/text_order.h"
#include "store/together.h"
#include "ui/kit/plain_text.h"

#include <QLocale>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

constexpr std::size_t mostActs = 20;

const ContactColumn &columnAt(int column) { return contactColumns()[std::size_t(column)]; }

/// A STOP also unticks, which belongs to the same act. From the right, so that an undo takes a STOP
/// away before it ticks again.
std::vector<int> columnsChangedWith(int column)
{
    std::vector<int> columns = columnsThat(&ContactColumn::undoable);
    std::erase_if(columns,
                  [column](int other) { return columnAt(other).kind != columnAt(column).kind; });
    std::ranges::reverse(columns);
    return columns;
}

QString contacts(std::size_t count)
{
    return displayLocale().toString(qulonglong(count)) +
           (count > 1 ? u" contacts"_s : u" contact"_s);
}

std::size_t countContacts(const std::vector<UndoList::Step> &steps)
{
    std::size_t count = 0;
    const QString *last = nullptr;
    for (const auto &step : steps) {
        count += last && *last == step.contact ? 0 : 1;
        last = &step.contact;
    }
    return count;
}

/// A template that was deleted cannot be chosen again.
bool canBe(const ContactColumn &column, const ProspectStore &store, const QVariant &value)
{
    const CellChoices choices = column.choices ? column.choices(store) : CellChoices();
    return choices.isEmpty() || std::ranges::any_of(choices, [&value](const CellChoice &choice) {
               return choice.id == value.toString();
           });
}

} // namespace

UndoList::UndoList(ProspectStore &store, TableState &state) : m_store(store), m_state(state) {}

std::vector<UndoList::Step> UndoList::valuesOf(const std::vector<int> &columns,
                                               const IdSet &ids) const
{
    std::vector<Step> values;
    values.reserve(columns.size() * ids.size());
    for (const QString &id : ids) {
        const Prospect *contact = m_store.prospect(id);
        if (!contact)
            continue;
        for (const int column : columns)
            values.push_back(
                {id, column, columnAt(column).value({m_store, m_state, *contact}), {}});
    }
    return values;
}

void UndoList::record(int column, const IdSet &ids, const std::function<void()> &act)
{
    if (!columnAt(column).undoable)
        return act();
    const std::vector<int> columns = columnsChangedWith(column);
    std::vector<Step> steps = valuesOf(columns, ids);
    act();
    for (Step &step : steps) {
        const Prospect *contact = m_store.prospect(step.contact);
        step.after =
            contact ? columnAt(step.column).value({m_store, m_state, *contact}) : step.before;
    }
    std::erase_if(steps, [](const Step &step) { return step.before == step.after; });
    if (steps.empty())
        return;
    keepStops(); // of earlier acts: they are no longer the last
    m_acts.push_back({++m_count, inWords(column, steps), std::move(steps)});
    if (m_acts.size() > mostActs)
        m_acts.erase(m_acts.begin());
    Q_EMIT recorded(m_count, m_acts.back().inWords);
}

QString UndoList::inWords(int column, const std::vector<Step> &steps) const
{
    const bool isCheck = columnAt(column).kind == CellKind::check;
    const auto own = std::ranges::find(steps, column, &Step::column);
    const bool isTicked = own != steps.end() && own->after.toBool();
    const QString verb = !isCheck ? u"modifié"_s : isTicked ? u"coché"_s : u"décoché"_s;
    const std::size_t count = countContacts(steps);
    const Prospect *only = count == 1 ? m_store.prospect(steps.front().contact) : nullptr;
    const QString whom = only ? u" : "_s + oneLine(only->label) : u" pour "_s + contacts(count);
    return u"« %1 » %2"_s.arg(QString::fromUtf16(columnAt(column).header), verb) + whom;
}

void UndoList::keepStops()
{
    const int column = columnOf(SortColumn::stopped);
    for (Act &act : m_acts) {
        const auto setsStop = [column](const Step &step) {
            return step.column == column && step.after.toBool();
        };
        act.isKept = act.isKept || std::ranges::any_of(act.steps, setsStop);
    }
}

QString UndoList::undoLast()
{
    return m_acts.empty() ? u"Rien à annuler."_s : undo(m_acts.back().number);
}

QString UndoList::undo(int number)
{
    if (m_acts.empty() || m_acts.back().number != number)
        return u"Ce n’est plus le dernier geste : rien n’a été annulé."_s;
    const Act act = std::move(m_acts.back());
    m_acts.pop_back();
    return takeBack(act);
}

QString UndoList::takeBack(const Act &act)
{
    if (act.isKept)
        return act.inWords + u" : ne s’annule plus, car d’autres gestes ont suivi ou une réponse a "
                             "pu le confirmer. Décochez STOP vous-même si c’est une erreur."_s;
    std::size_t undone = 0;
    const Together together(m_store);
    for (auto first = act.steps.begin(); first != act.steps.end();) {
        const auto next = std::find_if(first, act.steps.end(), [&first](const Step &step) {
            return step.contact != first->contact;
        });
        undone += takeBack(std::span(first, next)) ? 1 : 0;
        first = next;
    }
    const std::size_t all = countContacts(act.steps);
    if (undone == all)
        return u"Annulé : "_s + act.inWords;
    if (undone == 0)
        return act.inWords + u" : n’a pas été annulé, car ce n’est plus ainsi."_s;
    return u"Annulé pour %1 sur %2, les autres ont changé depuis : %3"_s.arg(
        displayLocale().toString(qulonglong(undone)), contacts(all), act.inWords);
}

bool UndoList::takeBack(std::span<const Step> ofContact)
{
    const Prospect *found = m_store.prospect(ofContact.front().contact);
    if (!found)
        return false;
    const Prospect contact = *found;
    const Cell cell{m_store, m_state, contact};
    const bool isAsLeft = std::ranges::all_of(ofContact, [&](const Step &step) {
        const ContactColumn &column = columnAt(step.column);
        return column.value(cell) == step.after && canBe(column, m_store, step.before);
    });
    if (!isAsLeft)
        return false;
    for (const Step &step : ofContact)
        columnAt(step.column).edit(cell, step.before);
    return true;
}

} // namespace quenoria
