#pragma once

#include "ui/kit/sheet.h"

#include <QTimeZone>

namespace quenoria {

class StopReplies;
struct StopReply;

/// The received messages that say STOP, each with the decision on it.
class StopRepliesView : public Sheet {
    Q_OBJECT

public:
    /// The replies outlive the sheet.
    StopRepliesView(StopReplies &replies, const QTimeZone &zone, QWidget *parent);

private:
    void refresh();
    QWidget *makeContent();
    QWidget *makeEmptyState() const;
    QWidget *makeRow(const StopReply &reply);

    StopReplies &m_replies;
    QTimeZone m_zone;
    QWidget *m_content = nullptr;
};

} // namespace quenoria
