#include "ui/window/restore_list_view.h"

#include "backup/backup_files.h"
#include "backup/backup_list.h"
#include "model/local_time.h"
#include "model/text_order.h"
#include "ui/kit/empty_state.h"

#include <QBoxLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QTreeWidget>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

constexpr int pathRole = Qt::UserRole;
constexpr int dateWidth = 220;
enum Column { date, contacts, sends, size, count };

void alignNumbers(QTreeWidgetItem &row)
{
    for (int column = Column::contacts; column < Column::count; ++column)
        row.setTextAlignment(column, Qt::AlignRight | Qt::AlignVCenter);
}

} // namespace

RestoreListView::RestoreListView(const Platform &platform, QWidget *parent)
    : Sheet(u"Restaurer une sauvegarde"_s, {600, 480}, parent), m_platform(platform)
{
    addHeader(windowTitle(), u"Rien n’est changé avant que vous n’ayez vu ce qui changerait."_s);
    const std::vector<StoredBackup> backups = storedBackups(backupFolder(platform.folders.data()));
    if (backups.empty())
        column()->addWidget(new EmptyState(
            u"clock.arrow.circlepath"_s, u"Aucune sauvegarde pour l’instant"_s,
            u"Une sauvegarde est faite chaque jour, et avant chaque import ou suppression. Celle "
            "que vous avez enregistrée ailleurs peut être choisie ci-dessous."_s));
    else
        column()->addWidget(makeList(backups), 1);
    addFooter(!backups.empty());
    if (m_list)
        m_list->setFocus();
}

QWidget *RestoreListView::makeList(const std::vector<StoredBackup> &backups)
{
    m_list = new QTreeWidget;
    m_list->setAccessibleName(u"Sauvegardes"_s);
    m_list->setHeaderLabels({u"Date"_s, u"Contacts"_s, u"Envois"_s, u"Taille"_s});
    alignNumbers(*m_list->headerItem());
    m_list->setRootIsDecorated(false);
    m_list->setUniformRowHeights(true);
    m_list->setAllColumnsShowFocus(true);
    for (const StoredBackup &backup : backups)
        m_list->addTopLevelItem(makeRow(backup));
    m_list->setCurrentItem(m_list->topLevelItem(0));
    m_list->setColumnWidth(Column::date, dateWidth);
    connect(m_list, &QTreeWidget::itemActivated, this, &RestoreListView::takeCurrent);
    return m_list;
}

QTreeWidgetItem *RestoreListView::makeRow(const StoredBackup &backup) const
{
    const QLocale locale = displayLocale();
    const auto note = readNote(backup.path);
    const auto number = [&](qint64 value) { return note ? locale.toString(value) : u"?"_s; };
    auto *row = new QTreeWidgetItem(
        {localDateTime(backup.date, m_platform.clock.zone()).toString(u"dd/MM/yyyy 'à' HH:mm"_s),
         number(note ? note->contacts : 0), number(note ? note->sends : 0),
         locale.formattedDataSize(backup.size, 1, QLocale::DataSizeSIFormat)});
    alignNumbers(*row);
    row->setData(Column::date, pathRole, backup.path);
    return row;
}

void RestoreListView::addFooter(bool hasBackups)
{
    auto *other = new QPushButton(u"Choisir un fichier…"_s);
    auto *look = new QPushButton(u"Voir ce qui changerait"_s);
    connect(other, &QPushButton::clicked, this, &RestoreListView::chooseFile);
    connect(look, &QPushButton::clicked, this, &RestoreListView::takeCurrent);
    look->setVisible(hasBackups);
    makeProminent(hasBackups ? look : other);
    (hasBackups ? look : other)->setDefault(true);
    auto *row = new QHBoxLayout;
    row->addWidget(other);
    row->addStretch();
    row->addWidget(look);
    footer()->addLayout(row);
}

void RestoreListView::chooseFile()
{
    const auto path = m_platform.panels.chooseFile(
        {u"Restaurer une sauvegarde"_s, u"Choisissez une sauvegarde .zip de Quenoria."_s,
         u"Choisir"_s, u"zip"_s});
    if (path)
        take(*path);
}

void RestoreListView::takeCurrent()
{
    if (const QTreeWidgetItem *row = m_list ? m_list->currentItem() : nullptr)
        take(row->data(Column::date, pathRole).toString());
}

void RestoreListView::take(const QString &path)
{
    if (!isVisible()) // Enter on a row also presses the default button
        return;
    accept();
    Q_EMIT chosen(path);
}

} // namespace quenoria
