#pragma once

#include <QWidget>

class QBoxLayout;
class QCheckBox;

namespace quenoria {

class BatchQueue;
class StatusLabel;
class Switches;
class TextLabel;

/// The switches that a queue obeys, with what the month still allows.
class QueueOptions : public QWidget {
    Q_OBJECT

public:
    QueueOptions(const BatchQueue &queue, Switches &switches, QWidget *parent = nullptr);

    void refresh();

private:
    void addQuota(QBoxLayout *row);

    const BatchQueue &m_queue;
    Switches &m_switches;
    QCheckBox *m_automatic;
    QCheckBox *m_freePro = nullptr; ///< null, like the quota, on a channel without one
    TextLabel *m_quota = nullptr;
    StatusLabel *m_note;
};

} // namespace quenoria
