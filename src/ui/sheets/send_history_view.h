#pragma once

#include "model/records.h"
#include "ui/kit/sheet.h"

#include <QTimeZone>

namespace quenoria {

class ProspectStore;
struct HistoryRow;

/// Lists the confirmed SMS of one contact, newest first.
class SendHistoryView : public Sheet {
    Q_OBJECT

public:
    SendHistoryView(ProspectStore &store, const QTimeZone &zone, const Prospect &prospect,
                    QWidget *parent);

private:
    void refresh();
    QWidget *makeContent() const;
    QWidget *makeList(const std::vector<HistoryRow> &rows) const;

    ProspectStore &m_store;
    QTimeZone m_zone;
    Prospect m_prospect;
    QWidget *m_content = nullptr;
};

} // namespace quenoria
