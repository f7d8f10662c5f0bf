#pragma once

#include <QPointer>
#include <QTimer>
#include <QWidget>

class QPushButton;

namespace quenoria {

class BatchQueue;
class TextLabel;

/// What the messages of a queue will meet, each count with a button that names the contacts and
/// leaves them out if the user wants; and when a run would end.
class PreflightRow : public QWidget {
    Q_OBJECT

public:
    explicit PreflightRow(BatchQueue &queue, QWidget *parent = nullptr);

    /// Looks again, once for all the changes of a moment.
    void refresh() { m_look.start(0); }

private:
    struct Finding {
        QString text;
        QStringList ids;
    };

    void look();
    void list(const Finding &finding);
    QString endText(int contacts) const;
    std::vector<Finding> findings() const;

    QPointer<BatchQueue> m_queue; ///< deletes itself once it is closed
    TextLabel *m_end;
    TextLabel *m_hour;
    std::vector<QPushButton *> m_buttons;
    std::vector<Finding> m_findings;
    QTimer m_look;
};

} // namespace quenoria
