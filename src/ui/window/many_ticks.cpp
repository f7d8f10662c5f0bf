#include "ui/window/many_ticks.h"

#include "ui/kit/alert.h"
#include "ui/table/contact_table_model.h"

#include <QLocale>
#include <QWidget>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

const ContactColumn &columnAt(int column) { return contactColumns()[std::size_t(column)]; }

QString quoted(const ContactColumn &column)
{
    return u"« %1 »"_s.arg(QString::fromUtf16(column.header));
}

QString contacts(std::size_t count)
{
    return QLocale(QLocale::French).toString(qulonglong(count)) +
           (count > 1 ? u" contacts"_s : u" contact"_s);
}

} // namespace

QString lineOn(const ManyContacts &outcome, const ContactColumn &column, bool on)
{
    const std::size_t changed = outcome.changed.size();
    QString line = quoted(column) + u" : "_s + contacts(changed) +
                   (on ? u" coché"_s : u" décoché"_s) + (changed > 1 ? u"s"_s : QString());
    QStringList reasons;
    if (outcome.stopped > 0)
        reasons << u"%1 STOP"_s.arg(outcome.stopped);
    if (outcome.unreachable > 0)
        reasons << u"%1 %2"_s.arg(QString::number(outcome.unreachable),
                                  QString::fromUtf16(column.unreachable));
    if (!reasons.isEmpty())
        line += u", %1 de côté (%2)"_s.arg(QString::number(outcome.stopped + outcome.unreachable),
                                           reasons.join(u", "_s));
    return line;
}

ManyTicks::ManyTicks(ContactTableModel &model, QWidget *window)
    : QObject(window), m_model(model), m_window(window)
{
}

void ManyTicks::tick(int column, bool on, const IdSet &ids)
{
    if (columnAt(column).recordsDates)
        ask(column, on, ids);
    else
        perform(column, on, ids);
}

void ManyTicks::tickShown(SortColumn column, bool on)
{
    tick(columnOf(column), on, m_model.shownContacts());
}

void ManyTicks::ask(int column, bool on, const IdSet &ids)
{
    const QString consequence =
        on ? u"La date de maintenant s’ajoutera à l’historique de ceux qui ne le sont pas encore."_s
           : u"Les dates déjà enregistrées restent dans leur historique."_s;
    const QString act = on ? u"Cocher"_s : u"Décocher"_s;
    confirm(m_window,
            {u"%1 %2 pour %3 ?"_s.arg(act, quoted(columnAt(column)), contacts(ids.size())),
             consequence + u" Ce geste ne s’annule pas."_s,
             u"%1 pour %2"_s.arg(act, contacts(ids.size()))},
            [this, column, on, ids] { perform(column, on, ids); });
}

void ManyTicks::perform(int column, bool on, const IdSet &ids)
{
    const ManyContacts outcome = m_model.tickMany(column, on, ids);
    const bool canBeUndone = columnAt(column).undoable && !outcome.changed.empty();
    Q_EMIT done(lineOn(outcome, columnAt(column), on), canBeUndone);
}

} // namespace quenoria
