#pragma once

#include "backup/restore.h"
#include "ui/kit/sheet.h"

#include <QFutureWatcher>

class QCheckBox;
class QPlainTextEdit;
class QProgressBar;
class QPushButton;

namespace quenoria {

class SendDesk;
class StatusLabel;
class TextLabel;

/// Shows what restoring a backup would change and, once the user says so, makes everything ready
/// for it on another thread. No message is sent meanwhile.
class RestoreView : public Sheet {
    Q_OBJECT

public:
    RestoreView(SendDesk &desk, const Platform &platform, const QString &path, QWidget *parent);
    ~RestoreView() override;

    /// Not while it is made ready.
    void reject() override;

    /// Shows why nothing was restored; sends may go on.
    void tellFailure(const QString &reason);

Q_SIGNALS:
    /// All is ready for decideRestore().
    void ready();

private:
    using Preview = std::shared_ptr<std::variant<RestorePreview, QString>>;

    void addParts();
    void showPreview();
    QString summary() const;
    QString reasons() const;
    void restore();
    void prepare();
    void concludePreparation();
    void showBusy(bool busy);

    SendDesk &m_desk;
    Platform m_platform;
    QString m_path;
    std::stop_source m_stop;
    QFutureWatcher<Preview> m_reading;
    QFutureWatcher<Refusal> m_preparation;
    RestorePreview m_preview;
    TextLabel *m_summary;
    QProgressBar *m_progress;
    QPlainTextEdit *m_names;
    QCheckBox *m_keepStops;
    QCheckBox *m_keepSends;
    StatusLabel *m_status;
    QPushButton *m_restore = nullptr;
    bool m_isPreparing = false;
    bool m_isOutdated = false; ///< the present is not what was compared
};

} // namespace quenoria
