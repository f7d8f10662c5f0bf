#pragma once

#include "export/export_file.h"
#include "platform/platform.h"
#include "store/prospect_store.h"
#include "ui/kit/sheet.h"

class QButtonGroup;
class QDateEdit;
class QProgressBar;
class QPushButton;

namespace quenoria {

class ExportRun;
class StatusLabel;

/// Writes contacts, sends or the STOP list to a file for a spreadsheet.
class ExportView : public Sheet {
    Q_OBJECT

public:
    /// The contacts shown are those of the table, in its order.
    ExportView(const Platform &platform, const ProspectStore &store,
               std::vector<Prospect> shownContacts, QWidget *parent);

    void reject() override;

private:
    enum class What { shownContacts, allContacts, sends, stops };

    void addChoices();
    void addPeriod();
    void addFormats();
    void addFooter();
    void save();
    ExportTable table() const;
    void showRunning(bool running);
    void conclude(const ExportOutcome &outcome);

    Platform m_platform;
    const ProspectStore &m_store;
    std::vector<Prospect> m_shownContacts;
    QButtonGroup *m_what;
    QButtonGroup *m_format;
    QDateEdit *m_first;
    QDateEdit *m_last;
    QProgressBar *m_progress;
    StatusLabel *m_status;
    QPushButton *m_save;
    QPushButton *m_stopButton;
    QList<QWidget *> m_choices; ///< of no use while the file is written
    QString m_fileName;
    ExportRun *m_run;
};

} // namespace quenoria
