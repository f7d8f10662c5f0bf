#pragma once

#include "backup/retention.h"
#include "platform/platform.h"
#include "ui/kit/sheet.h"

class QTreeWidget;
class QTreeWidgetItem;

namespace quenoria {

/// The backups that the application made, newest first, of which the user takes one or a file from
/// elsewhere.
class RestoreListView : public Sheet {
    Q_OBJECT

public:
    RestoreListView(const Platform &platform, QWidget *parent);

Q_SIGNALS:
    /// The sheet has been left for that backup.
    void chosen(const QString &path);

private:
    QWidget *makeList(const std::vector<StoredBackup> &backups);
    QTreeWidgetItem *makeRow(const StoredBackup &backup) const;
    void addFooter(bool hasBackups);
    void chooseFile();
    void take(const QString &path);
    void takeCurrent();

    Platform m_platform;
    QTreeWidget *m_list = nullptr;
};

} // namespace quenoria
