#include "ui/window/content_view.h"

#include "ui/kit/labels.h"
#include "ui/kit/plain_text.h"
#include "ui/kit/screen_room.h"
#include "ui/kit/switches.h"
#include "ui/table/contact_table_view.h"
#include "ui/window/backup_commands.h"
#include "ui/window/contact_menu.h"
#include "ui/window/contact_panel.h"
#include "ui/window/doubt_alerts.h"
#include "ui/window/farewell.h"
#include "ui/window/file_alerts.h"
#include "ui/window/file_drop.h"
#include "ui/window/filter_bar.h"
#include "ui/window/many_ticks.h"
#include "ui/window/outcome_line.h"
#include "ui/window/row_actions.h"
#include "ui/window/run_watch.h"
#include "ui/window/table_pages.h"
#include "ui/window/window_column.h"
#include "ui/window/window_header.h"
#include "ui/window/workbook_import.h"

#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QFileInfo>
#include <QLineEdit>
#include <QMenuBar>
#include <QStatusBar>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

const QString geometryKey = u"FenetrePrincipaleGeometrie"_s;
const QString widthsKey = u"FenetrePrincipaleColonnes"_s;
constexpr QSize firstSize{1280, 800};
constexpr int panelWidth = 1200; ///< of a window that has room for the panel, unless the user says

} // namespace

ContentView::ContentView(SendDesk &desk, Switches &switches, const Platform &platform,
                         QWidget *parent)
    : QMainWindow(parent), m_desk(desk), m_store(desk.store()), m_switches(switches),
      m_platform(platform), m_model(m_store, switches, platform.clock), m_commands(*this, switches),
      m_rows(new RowActions(desk, switches, this)),
      m_import(new WorkbookImport(m_store, platform.panels, this)),
      m_backups(new BackupCommands(desk, platform, this)),
      m_files(new FileAlerts(m_store, switches, this)),
      m_farewell(new Farewell(desk, *m_files, this)),
      m_doubts(new DoubtAlerts(desk, platform.clock.zone(), this)),
      m_header(new WindowHeader(m_commands)), m_table(new ContactTableView(m_model)),
      m_pages(new TablePages(m_table, m_commands.firstSteps())),
      m_filters(new FilterBar(m_model, m_store, platform.clock)),
      m_ticks(new ManyTicks(m_model, this)), m_outcome(new OutcomeLine),
      m_panel(new ContactPanel(m_model)),
      m_drop(new FileDrop(*m_table, m_store, m_model.undoList(), *m_import, this)),
      m_column(new WindowColumn(m_header))
{
    build();
    m_commands.fillMenuBar(*menuBar());
    addKeyboardMenus();
    followModel();
    followTable();
    followPanel();
    followRowActions();
    followMailbox();
    restoreLayout();
    refresh();
}

void ContentView::build()
{
    setWindowTitle(u"Quenoria"_s);
    setAcceptDrops(true);
    m_filters->hide();
    m_header->addFilters(m_filters);
    auto *middle = new QHBoxLayout;
    middle->setSpacing(0);
    middle->addWidget(m_pages, 1);
    middle->addWidget(m_panel);
    m_column->parts()->addLayout(middle, 1);
    m_column->parts()->addWidget(m_outcome);
    setCentralWidget(m_column);
    statusBar()->setSizeGripEnabled(false);
    statusBar()->hide();
}

/// What the table offers by its headers and cells, for the keyboard.
void ContentView::addKeyboardMenus()
{
    RunWatch::addSwitch(m_commands.menu(MenuPlace::send), m_platform.preferences);
    QMenu &edit = m_commands.menu(MenuPlace::edit);
    QMenu *contact = edit.addMenu(u"Contact"_s);
    connect(contact, &QMenu::aboutToShow, this, [this, contact] {
        contact->clear();
        if (const Prospect *current = m_table->currentContact())
            fillContactMenu(*contact, current->id);
    });
    QMenu *sort = edit.addMenu(u"Trier par"_s);
    for (const ContactColumn &column : contactColumns()) {
        if (column.sort)
            sort->addAction(QString::fromUtf16(column.header), this,
                            [this, by = *column.sort] { m_model.toggleSort(columnOf(by)); });
    }
}

void ContentView::followModel()
{
    connect(&m_model, &ContactTableModel::changed, this, &ContentView::refresh);
    connect(&m_switches, &Switches::changed, this, &ContentView::refresh);
    connect(&m_desk.stopReplies(), &StopReplies::changed, this, &ContentView::refresh);
    connect(&m_desk, &SendDesk::underWayChanged, &m_model,
            [this](Channel channel, const QString &id) {
                m_model.setUnderWay(channel, id, m_desk.isUnderWay(channel, id));
                m_import->noteSend(id);
            });
    connect(&m_desk, &SendDesk::prepared, m_import,
            [this](Channel, const QString &id) { m_import->noteSend(id); });
    connect(m_import, &WorkbookImport::undoOffered, this, &ContentView::refresh);
    connect(m_import, &WorkbookImport::followed, m_outcome, [this] { m_outcome->tell({}); });
    connect(m_import, &WorkbookImport::postponed, this, [this](const QString &path) {
        m_outcome->tell(u"« %1 » sera importé ensuite."_s.arg(oneLine(QFileInfo(path).fileName())));
    });
    connect(&m_store, &ProspectStore::published, this, [this](const Change &change) {
        std::visit(
            Following{[this](const QuotaChanged &) { refresh(); },
                      Ignoring<ContactsChanged, SelectionChanged, ListReshaped, // the model's
                               TemplatesChanged, DepartmentsChanged, TestNumberChanged>()},
            change);
    });
    connect(&m_model, &ContactTableModel::arrived, this, &ContentView::tellOfArrival);
    connect(m_header->searchField(), &QLineEdit::textChanged, &m_model,
            &ContactTableModel::setSearchText);
    connect(m_filters, &FilterBar::showAllRequested, this, &ContentView::showAll);
    connect(m_pages, &TablePages::showAllRequested, this, &ContentView::showAll);
    connect(m_header->searchField(), &QLineEdit::returnPressed, m_table,
            qOverload<>(&QWidget::setFocus));
}

void ContentView::refresh()
{
    HeaderTexts texts = HeaderTexts::of(m_desk, m_switches, m_model);
    texts.importCanBeUndone = m_import->canBeUndone();
    m_header->showTexts(texts);
    m_commands.showTexts(texts);
    m_filters->refresh();
    m_pages->follow(m_model.contacts(),
                    m_model.contacts().filter().inWords(m_store, m_model.zone()));
}

void ContentView::showBanner(const QString &text)
{
    TextLabel *banner = makeLabel(text, TextStyle::footnote, Tint::onAccent);
    banner->setBackgroundRole(QPalette::Highlight);
    banner->setAutoFillBackground(true);
    banner->setAlignment(Qt::AlignCenter);
    banner->setMargin(6);
    m_column->parts()->insertWidget(0, banner);
}

void ContentView::changeEvent(QEvent *event)
{
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isActiveWindow())
        m_model.lookForAttachments();
}

void ContentView::dragEnterEvent(QDragEnterEvent *event)
{
    event->setAccepted(m_drop->mayTake(*event));
}

void ContentView::dragMoveEvent(QDragMoveEvent *event)
{
    event->setAccepted(m_drop->follow(*event));
}

void ContentView::dragLeaveEvent(QDragLeaveEvent *) { m_drop->leave(); }

void ContentView::dropEvent(QDropEvent *event)
{
    if (m_drop->take(*event))
        event->acceptProposedAction();
    else
        event->ignore();
}

void ContentView::closeEvent(QCloseEvent *event)
{
    keepTypedText();
    if (!m_farewell->mayLeave()) {
        event->ignore();
        return;
    }
    saveLayout();
    QMainWindow::closeEvent(event);
}

bool ContentView::settle(bool mayAsk)
{
    keepTypedText();
    saveLayout();
    return m_farewell->settle(mayAsk);
}

void ContentView::restoreLayout()
{
    const auto geometry = m_platform.preferences.text(geometryKey);
    if (!geometry || !restoreGeometry(QByteArray::fromBase64(geometry->toLatin1())))
        resize(firstSize.boundedTo(screenRoom(*this)));
    else if (!isMaximized() && !isFullScreen())
        keepOnScreen(*this); // it may be a smaller one than the last time
    m_panel->setVisible(
        m_platform.preferences.flag(ContactPanel::preference).value_or(width() >= panelWidth));
    if (const auto widths = m_platform.preferences.text(widthsKey))
        m_table->setColumnWidths(*widths);
}

void ContentView::saveLayout()
{
    m_platform.preferences.setText(geometryKey, QString::fromLatin1(saveGeometry().toBase64()));
    m_platform.preferences.setText(widthsKey, m_table->columnWidths());
}

void ContentView::fillContactMenu(QMenu &menu, const QString &id)
{
    const IdSet selected = m_table->selectedContacts();
    if (selected.size() > 1 && selected.contains(id))
        return fillSelectionMenu(menu, *m_table, m_model);
    ContactMenu contents(m_model, id);
    contents.edit = [this, id] { editContact(id); };
    contents.act = [this, id](RowAction action) { performAction(action, id); };
    contents.showDossier = [this, id] { showDossier(id); };
    contents.fill(menu);
}

} // namespace quenoria
