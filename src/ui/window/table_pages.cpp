#include "ui/window/table_pages.h"

#include "ui/kit/empty_state.h"
#include "ui/table/contact_list.h"
#include "ui/table/contact_table_view.h"

using namespace Qt::StringLiterals;

namespace quenoria {

TablePages::TablePages(ContactTableView *table, QWidget *parent)
    : QStackedWidget(parent), m_table(table),
      m_noContact(new EmptyState(
          u"tablecells.badge.ellipsis"_s, u"Aucun contact pour le moment"_s,
          u"Importez un classeur Excel (Ctrl+I), déposez-le dans cette fenêtre, ou ajoutez un "
          "premier contact (Ctrl+N)."_s)),
      m_nothingFound(new EmptyState(
          u"magnifyingglass"_s, u"Aucun contact trouvé"_s,
          u"Aucun contact ne contient ce texte. Essayez un nom, une ville, un numéro écrit avec "
          "ses espaces ou une adresse e-mail."_s))
{
    addWidget(m_table);
    addWidget(m_noContact);
    addWidget(m_nothingFound);
}

void TablePages::follow(const ContactList &contacts)
{
    if (contacts.size() > 0)
        setCurrentWidget(m_table);
    else
        setCurrentWidget(contacts.total() == 0 ? m_noContact : m_nothingFound);
}

} // namespace quenoria
