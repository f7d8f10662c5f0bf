#include "platform/qt/dialog_panels.h"

#include "platform/qt/start_folder.h"

#include <QApplication>
#include <QComboBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QHeaderView>
#include <QLabel>
#include <QLayout>
#include <QScreen>
#include <QStandardPaths>
#include <QTreeView>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

const auto lastFolderKey = u"DernierDossier"_s;
constexpr QSize size{820, 540};
constexpr std::chrono::milliseconds patience{500}; ///< with the disk of the last folder
constexpr QSize frame{4, 40}; ///< what a desktop puts around a window, more or less

QStringList filters(const QString &suffix)
{
    if (suffix.isEmpty())
        return {u"Tous les fichiers (*)"_s};
    if (suffix == u"xlsx"_s)
        return {u"Classeurs Excel (*.xlsx)"_s};
    return {u"Fichiers %1 (*.%1)"_s.arg(suffix)};
}

/// Puts the message above everything else in the dialog.
void showMessage(QFileDialog &dialog, const QString &message)
{
    if (message.isEmpty())
        return;
    auto *label = new QLabel(message, &dialog);
    label->setWordWrap(true);
    label->setMargin(12);
    dialog.layout()->setMenuBar(label);
}

/// Gives the names the room, since icons show what they are. The toolkit keeps the columns for all
/// programs: they go back to what they were. The list has no public name: a toolkit that gives it
/// another one keeps its columns.
class FileColumns {
public:
    explicit FileColumns(const QFileDialog &dialog)
    {
        const auto *list = dialog.findChild<QTreeView *>(u"treeView"_s);
        if (!list)
            return;
        m_columns = list->header();
        m_asFound = m_columns->saveState();
        constexpr int type = 2;
        m_columns->hideSection(type);
        m_columns->setSectionResizeMode(QHeaderView::ResizeToContents);
        m_columns->setSectionResizeMode(0, QHeaderView::Stretch);
    }
    ~FileColumns()
    {
        if (m_columns)
            m_columns->restoreState(m_asFound);
    }
    Q_DISABLE_COPY_MOVE(FileColumns)

private:
    QHeaderView *m_columns = nullptr;
    QByteArray m_asFound;
};

/// Says to a screen reader what the labels beside the two boxes of choices show.
void nameChoices(const QFileDialog &dialog)
{
    for (const auto &[label, box] : {std::pair{u"lookInLabel"_s, u"lookInCombo"_s},
                                     std::pair{u"fileTypeLabel"_s, u"fileTypeCombo"_s}}) {
        if (auto *found = dialog.findChild<QLabel *>(label))
            found->setBuddy(dialog.findChild<QComboBox *>(box));
    }
}

} // namespace

std::optional<QString> DialogPanels::chooseFile(const OpenPanel &panel)
{
    QFileDialog dialog(QApplication::activeWindow(), panel.title);
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setFileMode(QFileDialog::ExistingFile);
    dialog.setNameFilters(filters(panel.suffix));
    dialog.setLabelText(QFileDialog::Accept, panel.button);
    showMessage(dialog, panel.message);
    return run(dialog);
}

std::optional<QString> DialogPanels::chooseDestination(const SavePanel &panel)
{
    QFileDialog dialog(QApplication::activeWindow(), panel.title);
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setNameFilters(filters(panel.suffix));
    dialog.setDefaultSuffix(panel.suffix);
    dialog.selectFile(panel.fileName);
    return run(dialog);
}

std::optional<QString> DialogPanels::run(QFileDialog &dialog)
{
    const QString home = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    const QString last = m_preferences.text(lastFolderKey).value_or(home);
    dialog.setDirectory(startFolder(last, QDir::homePath(), patience));
    nameChoices(dialog);
    dialog.resize(size.boundedTo(dialog.screen()->availableSize() - frame));
    const FileColumns columns(dialog);
    if (dialog.exec() != QDialog::Accepted)
        return std::nullopt;
    const QString file = dialog.selectedFiles().constFirst();
    m_preferences.setText(lastFolderKey, QFileInfo(file).absolutePath());
    return file;
}

} // namespace quenoria
