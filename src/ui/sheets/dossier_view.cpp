#include "ui/sheets/dossier_view.h"

#include "import/erased_contacts.h"
#include "ui/kit/alert.h"
#include "ui/kit/empty_state.h"
#include "ui/kit/plain_text.h"
#include "ui/kit/status_label.h"
#include "ui/sheets/dossier_document.h"
#include "ui/sheets/history_rows.h"

#include "model/contact_rules.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QFileInfo>
#include <QPushButton>
#include <QScrollBar>
#include <QStackedWidget>
#include <QTextEdit>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

const QString warning = u"exclamationmark.triangle.fill"_s;

/// "Dossier - GARAGE DU PORT.pdf", without what no name of a file may have.
QString proposedName(const Prospect &contact)
{
    constexpr qsizetype longest = 60;
    QString name = oneLine(labelParts(contact.label).name, longest);
    name.removeIf([](QChar c) { return u"/\\:<>\"|?*"_s.contains(c); });
    return u"Dossier - %1.pdf"_s.arg(name.trimmed());
}

} // namespace

DossierView::DossierView(const Platform &platform, ProspectStore &store, const QString &contactId,
                         QWidget *parent)
    : Sheet(u"Dossier du contact"_s, {720, 640}, parent), m_platform(platform), m_store(store),
      m_id(contactId), m_pages(new QStackedWidget), m_text(new QTextEdit),
      m_keepOut(new QCheckBox(u"Empêcher un import de le ramener (garder une empreinte)"_s)),
      m_status(new StatusLabel), m_erase(new QPushButton(u"Effacer ce contact et ses données…"_s)),
      m_save(new QPushButton(u"Enregistrer en PDF…"_s))
{
    addHeader(windowTitle(), u"Tout ce que l’application garde de ce contact."_s);
    addParts();
    addFooter();
    refresh();
    connect(&store, &ProspectStore::published, this, &DossierView::follow);
}

void DossierView::addParts()
{
    m_text->setReadOnly(true);
    m_text->setTabChangesFocus(true);
    m_text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    m_text->setAccessibleName(windowTitle());
    constexpr double edge = 12;
    m_text->document()->setDocumentMargin(edge);
    m_pages->addWidget(m_text);
    m_pages->addWidget(new EmptyState(u"info.circle"_s, u"Ce contact n’est plus dans la liste"_s,
                                      u"Ses données ont été effacées pendant que son dossier était "
                                      "ouvert."_s));
    column()->addWidget(m_pages, 1);
}

void DossierView::addFooter()
{
    makeDestructive(m_erase);
    makeProminent(m_save);
    m_save->setDefault(true);
    connect(m_erase, &QPushButton::clicked, this, &DossierView::askToErase);
    connect(m_save, &QPushButton::clicked, this, &DossierView::save);
    auto *row = new QHBoxLayout;
    row->addWidget(m_erase);
    row->addStretch();
    row->addWidget(m_save);
    footer()->addWidget(m_status);
    footer()->addWidget(m_keepOut);
    footer()->addLayout(row);
    m_text->setFocus();
}

/// What is shown may be changed by anything but the texts of another contact.
void DossierView::follow(const Change &change)
{
    const auto always = [this](const auto &) { refresh(); };
    std::visit(Following{[this](const ContactsChanged &changed) {
                             if (changed.ids.contains(m_id))
                                 refresh();
                         },
                         [this](const SelectionChanged &changed) {
                             if (changed.ids.contains(m_id))
                                 refresh();
                         },
                         [&](const ListReshaped &each) { always(each); },
                         [&](const TemplatesChanged &each) { always(each); },
                         [&](const DepartmentsChanged &each) { always(each); },
                         [&](const QuotaChanged &each) { always(each); },
                         Ignoring<TestNumberChanged>()},
               change);
}

void DossierView::refresh()
{
    m_dossier = contactDossier(m_store, m_id);
    const bool isThere = m_dossier.has_value();
    m_pages->setCurrentIndex(isThere ? 0 : 1);
    for (QWidget *part : {static_cast<QWidget *>(m_keepOut), static_cast<QWidget *>(m_erase),
                          static_cast<QWidget *>(m_save)})
        part->setEnabled(isThere);
    const int place = m_text->verticalScrollBar()->value();
    writeDossier(*m_text->document(), isThere ? dossierSections(*m_dossier, m_platform.clock.zone())
                                              : std::vector<DossierSection>());
    m_text->moveCursor(QTextCursor::Start); // from where it was written to
    m_text->verticalScrollBar()->setValue(place);
}

void DossierView::save()
{
    const QString fileName = proposedName(m_dossier->contact);
    const auto path =
        m_platform.panels.chooseDestination({u"Enregistrer le dossier"_s, fileName, u"pdf"_s});
    if (!path || !m_dossier) // which may have gone while the panel was open
        return;
    const QString moment = shownMoment(m_platform.clock.now(), m_platform.clock.zone());
    const QByteArray pdf = pdfOf(
        *m_text->document(), {u"%1 – %2"_s.arg(windowTitle(), oneLine(m_dossier->contact.label)),
                              u"Établi le "_s + moment});
    if (const Refusal refusal = m_platform.files.write(*path, pdf))
        m_status->setStatus(u"Enregistrement impossible : "_s + *refusal, Tint::negative, warning);
    else
        m_status->setStatus(u"Enregistré dans « %1 »."_s.arg(oneLine(QFileInfo(*path).fileName())),
                            Tint::positive, u"checkmark.circle.fill"_s);
}

void DossierView::askToErase()
{
    const QString label = m_dossier->contact.label;
    QString later =
        m_keepOut->isChecked()
            ? u"Une empreinte de son numéro et de son adresse sera gardée, pour qu’aucun import ne "
              "le ramène."_s
            : u"Un import qui contient ce contact le ramènera, sans sa demande STOP."_s;
    if (!m_keepOut->isChecked() && m_dossier->isStopped)
        later +=
            u" Une empreinte de cette demande sera gardée, pour qu’une sauvegarde restaurée ne "
            "l’oublie pas."_s;
    confirm(
        this,
        {u"Effacer ce contact et ses données ?"_s,
         label +
             u"\n\nSes envois, son commentaire, sa demande STOP, ses modèles et le chemin de son "
             "fichier joint seront effacés. Son numéro reste compté dans le quota des mois "
             "passés ; les sauvegardes et les exports déjà faits le gardent.\n\n"_s +
             later,
         u"Effacer"_s},
        [this] { erase(); });
}

/// What keeps imports away first: when it cannot be written, nothing is erased.
void DossierView::erase()
{
    if (!m_dossier)
        return;
    if (m_keepOut->isChecked()) {
        if (const Refusal refusal = m_store.rememberErased(keysForImports(*m_dossier))) {
            m_status->setStatus(
                u"Rien n’est effacé, l’empreinte ne peut pas être enregistrée : "_s + *refusal,
                Tint::negative, warning);
            return;
        }
    }
    disconnect(&m_store, nullptr, this, nullptr);
    m_store.deleteProspects({m_id});
    accept();
}

} // namespace quenoria
