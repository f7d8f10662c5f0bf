#include "ui/kit/alert.h"

#include "ui/kit/button_role.h"
#include "ui/kit/labels.h"
#include "ui/kit/symbol.h"

#include <QApplication>
#include <QEvent>
#include <QMessageBox>
#include <QPushButton>
#include <QWindow>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

constexpr int symbolSide = 32;
constexpr int messageWidth = 340; ///< a line of the import's report

/// Draws its symbol again when the appearance changes while it is open.
class AlertBox : public QMessageBox {
public:
    AlertBox(QIcon icon, QWidget *window) : QMessageBox(window), m_icon(std::move(icon))
    {
        showSymbol();
    }

protected:
    void changeEvent(QEvent *event) override
    {
        QMessageBox::changeEvent(event);
        if (event->type() == QEvent::PaletteChange)
            showSymbol();
    }

private:
    void showSymbol()
    {
        setIconPixmap(m_icon.pixmap(QSize(symbolSide, symbolSide), devicePixelRatio()));
    }

    QIcon m_icon;
};

QMessageBox *makeBox(QWidget *window, const QIcon &icon, const QString &title,
                     const QString &message)
{
    auto *box = new AlertBox(icon, window);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setWindowModality(Qt::WindowModal);
    box->setWindowTitle(oneLine(title));
    box->setTextFormat(Qt::PlainText);
    box->setText(paragraph(title, headingRoom));
    box->setInformativeText(paragraph(message, messageRoom));
    if (auto *heading = box->findChild<QLabel *>(u"qt_msgbox_label"_s))
        heading->setFont(styledFont(TextStyle::headline));
    if (auto *body = box->findChild<QLabel *>(u"qt_msgbox_informativelabel"_s)) {
        body->setTextFormat(Qt::PlainText);
        body->setMinimumWidth(messageWidth);
    }
    return box;
}

} // namespace

void openInFront(QDialog *dialog, QWidget *window)
{
    auto *front = qobject_cast<QDialog *>(QApplication::activeModalWidget());
    if (front && front != window) {
        dialog->setParent(front, dialog->windowFlags());
        QObject::connect(front, &QDialog::finished, dialog, [dialog, window] {
            dialog->setParent(window, dialog->windowFlags());
            // A window manager may take the same window, hidden and shown at once, for hidden.
            dialog->windowHandle()->destroy();
            openInFront(dialog, window);
        });
    }
    dialog->open();
}

QWidget *showAlert(QWidget *window, const QString &title, const QString &message)
{
    QMessageBox *box = makeBox(window, symbol(u"info.circle"_s, Tint::accent), title, message);
    QPushButton *leave = box->addButton(u"OK"_s, QMessageBox::AcceptRole);
    makeProminent(leave);
    box->setDefaultButton(leave);
    openInFront(box, window);
    return box;
}

QWidget *showAlert(QWidget *window, const QString &title, const QString &message,
                   const AlertChoice &other)
{
    QMessageBox *box = makeBox(window, symbol(u"info.circle"_s, Tint::accent), title, message);
    QPushButton *action = box->addButton(other.text, QMessageBox::ActionRole);
    QPushButton *leave = box->addButton(u"OK"_s, QMessageBox::RejectRole); // where it always is
    makeProminent(leave);
    box->setDefaultButton(leave);
    box->setEscapeButton(leave);
    QObject::connect(action, &QPushButton::clicked, window, other.act);
    openInFront(box, window);
    return box;
}

QWidget *offerToRetry(QWidget *window, const QString &title, const QString &message,
                      const std::function<void()> &retry)
{
    QMessageBox *box =
        makeBox(window, symbol(u"exclamationmark.triangle.fill"_s, Tint::negative), title, message);
    QPushButton *action = box->addButton(u"Réessayer"_s, QMessageBox::AcceptRole);
    makeProminent(action);
    box->setEscapeButton(box->addButton(u"Plus tard"_s, QMessageBox::RejectRole));
    box->setDefaultButton(action);
    QObject::connect(action, &QPushButton::clicked, window, retry);
    openInFront(box, window);
    return box;
}

QWidget *offerChoices(QWidget *window, const QString &title, const QString &message,
                      const std::vector<AlertChoice> &choices)
{
    QMessageBox *box =
        makeBox(window, symbol(u"exclamationmark.triangle.fill"_s, Tint::negative), title, message);
    for (const AlertChoice &choice : choices) {
        const bool isLast = &choice == &choices.back();
        QPushButton *button =
            box->addButton(choice.text, isLast ? QMessageBox::RejectRole : QMessageBox::ActionRole);
        QObject::connect(button, &QPushButton::clicked, window, choice.act);
        if (!isLast)
            continue;
        box->setDefaultButton(button);
        box->setEscapeButton(button);
    }
    openInFront(box, window);
    return box;
}

void confirm(QWidget *window, const Destruction &destruction, const std::function<void()> &act)
{
    QMessageBox *box = makeBox(window, symbol(u"exclamationmark.triangle.fill"_s, Tint::negative),
                               destruction.title, destruction.message);
    QPushButton *action = box->addButton(destruction.action, QMessageBox::DestructiveRole);
    QPushButton *cancel = box->addButton(u"Annuler"_s, QMessageBox::RejectRole);
    makeDestructive(action);
    box->setDefaultButton(cancel);
    box->setEscapeButton(cancel);
    QObject::connect(action, &QPushButton::clicked, window, act);
    openInFront(box, window);
}

} // namespace quenoria
