#include "ui/window/farewell.h"

#include "messaging/send_desk.h"
#include "ui/kit/labels.h"

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

Farewell::Farewell(SendDesk &desk, QWidget *window)
    : QObject(window), m_desk(desk), m_window(window)
{
    connect(&m_desk, &SendDesk::idle, this, &Farewell::look);
}

bool Farewell::mayLeave()
{
    m_desk.close();
    if (!m_desk.isBusy())
        return true;
    if (!m_notice) {
        m_notice = new Notice(m_window);
        m_notice->open();
    }
    return false;
}

void Farewell::look()
{
    if (!m_notice)
        return;
    delete m_notice;
    Q_EMIT ready();
}

} // namespace quenoria
