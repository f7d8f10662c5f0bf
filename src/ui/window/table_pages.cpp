#include "ui/window/table_pages.h"

#include "ui/kit/button_role.h"
#include "ui/kit/empty_state.h"
#include "ui/kit/middle_area.h"
#include "ui/kit/plain_text.h"
#include "ui/table/contact_list.h"
#include "ui/table/contact_table_view.h"
#include "ui/window/action_button.h"

#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

enum Page { table, noContact, nothingFound }; ///< in the order in which they are added

/// What hides the contacts, and what to do about it.
QString whatHides(const QString &search, const QStringList &filter)
{
    const QString hint =
        u"Essayez un nom, une ville, un numéro écrit avec ses espaces ou une adresse e-mail."_s;
    if (filter.isEmpty())
        return u"Aucun contact ne contient ce texte. "_s + hint;
    QStringList quoted;
    for (const QString &each : filter)
        quoted << u"« %1 »"_s.arg(oneLine(each));
    const QString filters = filter.size() > 1 ? u"aux filtres "_s : u"au filtre "_s;
    if (search.isEmpty())
        return u"Aucun contact ne répond %1%2."_s.arg(filters, quoted.join(u", "_s));
    return u"Aucun contact qui contient « %1 » ne répond %2%3."_s.arg(oneLine(search), filters,
                                                                      quoted.join(u", "_s));
}

/// Unseen, it asks for no room; seen with less than it needs, it scrolls.
MiddleArea *withBars(EmptyState *state)
{
    auto *area = new MiddleArea;
    area->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    auto *only = new QVBoxLayout(area->widget());
    only->setContentsMargins({});
    only->addWidget(state);
    return area;
}

} // namespace

TablePages::TablePages(ContactTableView *view, const QList<QAction *> &firstSteps, QWidget *parent)
    : QStackedWidget(parent),
      m_noContact(new EmptyState(
          u"tablecells.badge.ellipsis"_s, u"Aucun contact pour le moment"_s,
          u"Importez un classeur Excel (Ctrl+O), déposez-le dans cette fenêtre, ou ajoutez un "
          "premier contact (Ctrl+N)."_s)),
      m_nothingFound(new EmptyState(u"magnifyingglass"_s, u"Aucun contact trouvé"_s, {}))
{
    for (QAction *step : firstSteps) {
        auto *button = new ActionButton(step, ActionButton::Look::boxed);
        if (step == firstSteps.first()) {
            makeProminent(button);
            button->setIcon({}); // drawn for a lighter ground
        }
        m_noContact->addButton(button);
    }
    auto *all = new QPushButton(u"Tout afficher"_s);
    connect(all, &QPushButton::clicked, this, &TablePages::showAllRequested);
    m_nothingFound->addButton(all);
    addWidget(view);
    addWidget(withBars(m_noContact));
    addWidget(withBars(m_nothingFound));
}

void TablePages::follow(const ContactList &contacts, const QStringList &filter)
{
    m_nothingFound->setDescription(whatHides(contacts.searchText().trimmed(), filter));
    if (contacts.size() > 0)
        setCurrentIndex(table);
    else
        setCurrentIndex(contacts.total() == 0 ? noContact : nothingFound);
}

} // namespace quenoria
