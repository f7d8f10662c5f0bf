#include "ui/sheets/stop_list_view.h"

#include "import/import_error.h"
#include "model/contact_rules.h"
#include "store/many_contacts.h"
#include "store/prospect_store.h"
#include "ui/kit/labels.h"
#include "ui/kit/status_label.h"
#include "ui/kit/text_boxes.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QFileInfo>
#include <QProgressBar>
#include <QPushButton>
#include <QtConcurrent>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

const QString emailPrefix = u"email:"_s;

QString shownKey(const QString &key)
{
    return key.startsWith(emailPrefix) ? key.sliced(emailPrefix.size()) : formatPhone(key);
}

QStringList labelsOf(const IdSet &ids, const ProspectStore &store)
{
    QStringList labels;
    for (const QString &id : ids) {
        if (const Prospect *contact = store.prospect(id))
            labels << contact->label;
    }
    labels.sort(Qt::CaseInsensitive);
    return labels;
}

} // namespace

StopListView::StopListView(ProspectStore &store, const QString &path, QWidget *parent)
    : Sheet(u"Appliquer une liste STOP"_s, {640, 560}, parent), m_store(store),
      m_summary(makeLabel({})), m_progress(new QProgressBar),
      m_names(new PreviewBox(u"Contacts de la liste"_s)),
      m_keepUnknown(new QCheckBox(u"Garder les inconnus dans « Numéros à ne pas contacter »"_s)),
      m_status(new StatusLabel)
{
    addParts(path);
    connect(&m_reading, &QFutureWatcherBase::finished, this, &StopListView::showMatches);
    connect(this, &QDialog::rejected, this, [this] { m_stop.request_stop(); });
    m_reading.setFuture(QtConcurrent::run(&StopListView::read, path, m_stop.get_token()));
}

StopListView::~StopListView()
{
    m_stop.request_stop();
    m_reading.waitForFinished();
}

void StopListView::addParts(const QString &path)
{
    addTitle(windowTitle());
    m_summary->setText(u"Lecture de « %1 »…"_s.arg(oneLine(QFileInfo(path).fileName())));
    m_progress->setRange(0, 0);
    m_progress->setTextVisible(false);
    m_progress->setAccessibleName(u"Lecture de la liste"_s);
    column()->addWidget(m_summary);
    column()->addWidget(m_progress);
    column()->addWidget(m_names, 1);
    column()->addWidget(m_keepUnknown);
    m_names->hide();
    m_keepUnknown->hide();
    footer()->addWidget(m_status);
    m_apply = addConfirmRow(u"Marquer STOP"_s);
    m_apply->setEnabled(false);
    connect(m_apply, &QPushButton::clicked, this, &StopListView::apply);
    connect(m_keepUnknown, &QCheckBox::toggled, this,
            [this](bool keep) { m_apply->setEnabled(keep || !m_matches.contacts.empty()); });
}

std::shared_ptr<StopListView::Reading> StopListView::read(const QString &path,
                                                          const std::stop_token &stop)
{
    auto reading = std::make_shared<Reading>();
    try {
        reading->list = readStopList(path, {stop, {}});
    } catch (const ImportFailure &failure) {
        reading->failure = failure.message();
    } catch (const ImportAbandoned &) {
        reading->failure = QString();
    }
    return reading;
}

void StopListView::showMatches()
{
    const std::shared_ptr<Reading> reading = m_reading.result();
    m_progress->hide();
    if (reading->failure) {
        m_summary->hide();
        m_status->setStatus(*reading->failure, Tint::negative, u"exclamationmark.triangle.fill"_s);
        return;
    }
    m_matches = matchStops(reading->list, m_store);
    QStringList unknown;
    for (const QString &key : m_matches.unknown)
        unknown << shownKey(key);
    const QStringList lines =
        listedSection(u"Seront marqués STOP"_s, labelsOf(m_matches.contacts, m_store)) +
        listedSection(u"Déjà STOP"_s, labelsOf(m_matches.alreadyStopped, m_store)) +
        listedSection(u"Inconnus"_s, unknown);
    m_summary->setText(u"%1 contact(s) à marquer STOP, %2 déjà STOP, %3 numéro(s) ou adresse(s) "
                       "inconnu(s)."_s.arg(QString::number(m_matches.contacts.size()),
                                           QString::number(m_matches.alreadyStopped.size()),
                                           QString::number(unknown.size())));
    m_names->setPlainText(lines.join(u'\n'));
    m_names->setVisible(!lines.isEmpty());
    m_keepUnknown->setVisible(!unknown.isEmpty());
    m_apply->setText(u"Marquer STOP (%1)"_s.arg(m_matches.contacts.size()));
    m_apply->setEnabled(!m_matches.contacts.empty());
}

/// The unknown ones first: when they cannot be kept, the sheet stays and says so.
void StopListView::apply()
{
    if (m_keepUnknown->isChecked()) {
        if (const Refusal refusal = m_store.addToDoNotContact(m_matches.unknown)) {
            m_status->setStatus(u"Enregistrement impossible : "_s + *refusal, Tint::negative,
                                u"exclamationmark.triangle.fill"_s);
            return;
        }
    }
    m_store.setStopped(true, m_matches.contacts);
    accept();
}

} // namespace quenoria
