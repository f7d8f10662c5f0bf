#include "ui/window/farewell.h"

#include "ui/kit/labels.h"
#include "ui/queue/batch_queue.h"
#include "ui/window/row_actions.h"

#include <QDialog>
#include <QLabel>
#include <QProgressBar>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

constexpr int margin = 24;
constexpr int noticeWidth = 420;

/// Stays until the window goes: there is nothing to decide any more.
class Notice : public QDialog {
public:
    explicit Notice(QWidget *parent) : QDialog(parent)
    {
        setWindowTitle(u"Envoi en cours"_s);
        setWindowModality(Qt::WindowModal);
        auto *column = new QVBoxLayout(this);
        column->setContentsMargins(margin, margin, margin, margin);
        column->addWidget(makeLabel(u"Un envoi est en cours."_s, TextStyle::headline));
        column->addWidget(makeLabel(
            u"L’application se fermera dès que cet envoi sera enregistré dans le suivi."_s,
            TextStyle::body, Tint::secondary));
        auto *busy = new QProgressBar;
        busy->setRange(0, 0);
        busy->setTextVisible(false);
        column->addWidget(busy);
        resize(noticeWidth, sizeHint().height());
    }

    void reject() override {}
};

} // namespace

Farewell::Farewell(const ProspectStore &store, RowActions &rows, QWidget *window)
    : QObject(window), m_store(store), m_rows(rows), m_window(window)
{
}

bool Farewell::isSending() const { return m_rows.isSending() || BatchQueue::sending(m_store); }

bool Farewell::mayLeave()
{
    if (!isSending())
        return true;
    if (m_notice)
        return false;
    m_notice = new Notice(m_window);
    m_notice->open();
    connect(&m_rows, &RowActions::idle, this, &Farewell::look, Qt::UniqueConnection);
    m_rows.stopWaiting();
    look();
    return false;
}

void Farewell::look()
{
    if (BatchQueue *queue = BatchQueue::sending(m_store)) {
        connect(queue, &BatchQueue::idle, this, &Farewell::look, Qt::UniqueConnection);
        queue->close();
        return;
    }
    if (m_rows.isSending())
        return;
    delete m_notice;
    Q_EMIT ready();
}

} // namespace quenoria
