#pragma once

#include <QWidget>

class QBoxLayout;
class QCheckBox;

namespace quenoria {

class BatchQueue;
struct Allowance;
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
    void addAllowance(QBoxLayout *row, const Allowance &allowance);

    const BatchQueue &m_queue;
    Switches &m_switches;
    QCheckBox *m_automatic;
    QCheckBox *m_lifted = nullptr; ///< null, like what is used, on a channel without an allowance
    TextLabel *m_used = nullptr;
    StatusLabel *m_note;
};

} // namespace quenoria
