#pragma once

#include "import/stop_list.h"
#include "ui/kit/sheet.h"

#include <QFutureWatcher>

#include <memory>
#include <optional>

class QCheckBox;
class QPlainTextEdit;
class QProgressBar;
class QPushButton;

namespace quenoria {

class ProspectStore;
class StatusLabel;
class TextLabel;

/// Reads a STOP list on another thread, shows whom it concerns, and stops them once the user says
/// so.
class StopListView : public Sheet {
    Q_OBJECT

public:
    StopListView(ProspectStore &store, const QString &path, QWidget *parent);
    ~StopListView() override;

private:
    struct Reading {
        StopList list;
        std::optional<QString> failure;
    };

    static std::shared_ptr<Reading> read(const QString &path, const std::stop_token &stop);
    void addParts(const QString &path);
    void showMatches();
    void apply();

    ProspectStore &m_store;
    std::stop_source m_stop;
    QFutureWatcher<std::shared_ptr<Reading>> m_reading;
    StopMatches m_matches;
    TextLabel *m_summary;
    QProgressBar *m_progress;
    QPlainTextEdit *m_names;
    QCheckBox *m_keepUnknown;
    StatusLabel *m_status;
    QPushButton *m_apply = nullptr;
};

} // namespace quenoria
