#include "ui/window/farewell.h"

#include "messaging/send_desk.h"
#include "ui/kit/alert.h"
#include "ui/kit/labels.h"
#include "ui/kit/sheet.h"
#include "ui/window/file_alerts.h"

#include <QDialog>
#include <QEventLoop>
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

Farewell::Farewell(SendDesk &desk, FileAlerts &files, QWidget *window)
    : QObject(window), m_desk(desk), m_files(files), m_window(window)
{
    connect(&m_desk, &SendDesk::idle, this, &Farewell::finish);
}

bool Farewell::mayLeave()
{
    if (!m_inputIsGivenUp && hasUnsavedInput()) {
        askAboutInput();
        return false;
    }
    m_desk.close();
    if (m_desk.isBusy()) {
        showNotice();
        return false;
    }
    if (m_files.mayLeave()) {
        abandonSheets();
        return true;
    }
    callOff();
    return false;
}

bool Farewell::settle(bool mayAsk)
{
    if (mayAsk && hasUnsavedInput() && !awaitAnswer())
        return false;
    m_desk.close();
    if (m_desk.isBusy()) {
        QEventLoop untilIdle;
        connect(&m_desk, &SendDesk::idle, &untilIdle, &QEventLoop::quit);
        untilIdle.exec();
    }
    m_desk.reopen(); // the session may yet go on
    return m_files.mayLeave() || !mayAsk;
}

QList<Sheet *> Farewell::openSheets() const
{
    QList<Sheet *> sheets = m_window->findChildren<Sheet *>();
    sheets.removeIf([](const Sheet *sheet) { return !sheet->isVisible(); });
    return sheets;
}

bool Farewell::hasUnsavedInput() const
{
    return std::ranges::any_of(openSheets(), &Sheet::hasUnsavedInput);
}

/// They close with the application, which asks each one: the user has answered already.
void Farewell::abandonSheets() const
{
    const QList<Sheet *> sheets = openSheets();
    for (Sheet *sheet : sheets)
        sheet->abandon();
}

void Farewell::askAboutInput()
{
    if (m_question)
        return;
    const auto giveUp = [this] {
        m_inputIsGivenUp = true;
        Q_EMIT ready();
    };
    m_question = offerChoices(m_window, u"Quitter sans enregistrer la saisie ?"_s,
                              u"Ce que vous avez saisi dans la fenêtre ouverte n’est pas encore "
                              "enregistré et serait perdu."_s,
                              {{u"Quitter"_s, giveUp}, {u"Rester"_s, [this] { callOff(); }}});
}

bool Farewell::awaitAnswer()
{
    QEventLoop untilAnswered;
    connect(this, &Farewell::ready, &untilAnswered, [&] { untilAnswered.exit(1); });
    connect(this, &Farewell::calledOff, &untilAnswered, [&] { untilAnswered.exit(0); });
    askAboutInput();
    return untilAnswered.exec() == 1;
}

void Farewell::showNotice()
{
    if (m_notice)
        return;
    m_notice = new Notice(m_window);
    openInFront(m_notice, m_window);
}

void Farewell::finish()
{
    if (!m_notice)
        return;
    delete m_notice;
    Q_EMIT ready();
}

void Farewell::callOff()
{
    m_inputIsGivenUp = false;
    m_desk.reopen();
    Q_EMIT calledOff();
}

} // namespace quenoria
