#include "ui/window/restore_view.h"

#include "backup/pending_restore.h"
#include "messaging/send_desk.h"
#include "model/local_time.h"
#include "model/text_order.h"
#include "ui/kit/alert.h"
#include "ui/kit/labels.h"
#include "ui/kit/status_label.h"
#include "ui/kit/text_boxes.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QProgressBar>
#include <QPushButton>
#include <QtConcurrent>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

const QString withoutStops =
    u"Sans les STOP donnés depuis, des personnes qui ne veulent plus de messages en recevraient de "
    "nouveau."_s;
const QString withoutSends = u"Sans les envois enregistrés depuis, un message déjà parti pourrait "
                             u"partir une seconde fois, et "
                             "le nombre de destinataires du mois serait faux."_s;
const QString outdated =
    u"Vos données ont changé depuis la lecture de la sauvegarde : fermez cette "
    "fenêtre et recommencez."_s;
const QString warning = u"exclamationmark.triangle.fill"_s;

QString number(std::size_t count) { return displayLocale().toString(qulonglong(count)); }

} // namespace

RestoreView::RestoreView(SendDesk &desk, const Platform &platform, const QString &path,
                         QWidget *parent)
    : Sheet(u"Restaurer une sauvegarde"_s, {640, 560}, parent), m_desk(desk), m_platform(platform),
      m_path(path), m_summary(makeLabel(u"Lecture de la sauvegarde…"_s)),
      m_progress(new QProgressBar), m_names(new PreviewBox(u"Ce qui changerait"_s)),
      m_keepStops(new QCheckBox), m_keepSends(new QCheckBox), m_status(new StatusLabel)
{
    addParts();
    connect(&m_reading, &QFutureWatcherBase::finished, this, &RestoreView::showPreview);
    connect(&m_preparation, &QFutureWatcherBase::finished, this, &RestoreView::concludePreparation);
    connect(&desk.store(), &ProspectStore::published, this, [this] { m_isOutdated = true; });
    const auto read = [path, platform, stop = m_stop.get_token(),
                       present = presentState(desk.store())] {
        return std::make_shared<std::variant<RestorePreview, QString>>(
            previewRestore(path, present, platform, stop));
    };
    m_reading.setFuture(QtConcurrent::run(read));
}

RestoreView::~RestoreView()
{
    m_stop.request_stop();
    m_reading.waitForFinished();
    m_preparation.waitForFinished();
}

void RestoreView::addParts()
{
    addTitle(windowTitle());
    m_progress->setRange(0, 0);
    m_progress->setTextVisible(false);
    m_progress->setAccessibleName(u"Lecture de la sauvegarde"_s);
    column()->addWidget(m_summary);
    column()->addWidget(m_progress);
    column()->addWidget(m_names, 1);
    m_names->hide();
    for (QCheckBox *keep : {m_keepStops, m_keepSends}) {
        column()->addWidget(keep);
        keep->setChecked(true);
        keep->hide();
        connect(keep, &QCheckBox::toggled, this,
                [this] { m_status->setStatus(reasons(), Tint::negative, warning); });
    }
    footer()->addWidget(m_status);
    m_restore = addConfirmRow(u"Restaurer"_s);
    m_restore->setEnabled(false);
    connect(m_restore, &QPushButton::clicked, this, &RestoreView::restore);
}

void RestoreView::showPreview()
{
    const Preview read = m_reading.result();
    m_progress->hide();
    if (const auto *failure = std::get_if<QString>(read.get())) {
        m_summary->hide();
        m_status->setStatus(*failure, Tint::negative, warning);
        return;
    }
    m_preview = std::move(std::get<RestorePreview>(*read));
    m_summary->setText(summary());
    const QStringList lines = listedSection(u"Contacts qui reviendraient"_s, m_preview.added) +
                              listedSection(u"Contacts qui partiraient"_s, m_preview.removed) +
                              listedSection(u"Contacts qui changeraient"_s, m_preview.changed) +
                              listedSection(u"STOP donnés depuis"_s, m_preview.stopped);
    m_names->setPlainText(lines.join(u'\n'));
    m_names->setVisible(!lines.isEmpty());
    m_keepStops->setText(
        u"Garder les STOP donnés depuis (%1)"_s.arg(number(std::size_t(m_preview.stopped.size()))));
    m_keepSends->setText(
        u"Garder les envois enregistrés depuis (%1)"_s.arg(number(m_preview.sends)));
    m_keepStops->show();
    m_keepSends->show();
    m_restore->setEnabled(true);
    m_restore->setFocus();
}

QString RestoreView::summary() const
{
    const QString when = m_preview.date ? localDateTime(*m_preview.date, m_platform.clock.zone())
                                              .toString(u" 'du' dd/MM/yyyy 'à' HH:mm"_s)
                                        : QString();
    const auto names = [](const QStringList &list) { return number(std::size_t(list.size())); };
    return u"Sauvegarde%1, de %2 contact(s) : %3 de retour, %4 en moins, %5 changé(s). %6 STOP et "
           u"%7 "
           "envoi(s) n’existent que maintenant.\nL’état actuel est sauvegardé d’abord : vous "
           "pourrez "
           "y revenir."_s.arg(when, number(m_preview.contacts), names(m_preview.added),
                              names(m_preview.removed), names(m_preview.changed),
                              names(m_preview.stopped), number(m_preview.sends));
}

/// Why it is unwise not to keep what is not to be kept; empty when all is kept.
QString RestoreView::reasons() const
{
    QStringList texts;
    if (!m_keepStops->isChecked())
        texts << withoutStops;
    if (!m_keepSends->isChecked())
        texts << withoutSends;
    return texts.join(u'\n');
}

void RestoreView::restore()
{
    if (m_isPreparing)
        return;
    const QString reason = reasons();
    if (reason.isEmpty())
        return prepare();
    confirm(this, {u"Restaurer sans tout garder ?"_s, reason, u"Restaurer quand même"_s},
            [this] { prepare(); });
}

void RestoreView::prepare()
{
    m_desk.close();
    if (m_desk.isBusy() || m_isOutdated)
        return tellFailure(outdated);
    showBusy(true);
    RestoreOrder order{m_path, std::make_shared<Snapshot>(m_desk.store(), m_platform),
                       m_preview.memory, m_keepStops->isChecked(), m_keepSends->isChecked()};
    const auto prepare = [order = std::move(order), platform = m_platform] {
        return prepareRestore(order, platform);
    };
    m_preparation.setFuture(QtConcurrent::run(prepare));
}

void RestoreView::concludePreparation()
{
    Refusal failure = m_preparation.result();
    if (!failure && m_isOutdated)
        failure = outdated;
    if (!failure) {
        Q_EMIT ready();
        return;
    }
    giveUpRestore(m_platform);
    tellFailure(*failure);
}

void RestoreView::tellFailure(const QString &reason)
{
    m_desk.reopen();
    showBusy(false);
    m_status->setStatus(reason, Tint::negative, warning);
}

void RestoreView::showBusy(bool busy)
{
    m_isPreparing = busy;
    m_progress->setVisible(busy);
    m_restore->setEnabled(!busy);
    m_keepStops->setEnabled(!busy);
    m_keepSends->setEnabled(!busy);
}

void RestoreView::reject()
{
    if (!m_isPreparing)
        Sheet::reject();
}

} // namespace quenoria
