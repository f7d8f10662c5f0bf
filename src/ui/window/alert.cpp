#include "ui/window/alert.h"

#include "ui/kit/button_role.h"

#include <QMessageBox>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

QMessageBox *makeBox(QWidget *window, const QString &title, const QString &message)
{
    auto *box = new QMessageBox(window);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setWindowModality(Qt::WindowModal);
    box->setWindowTitle(title);
    box->setTextFormat(Qt::PlainText);
    box->setText(title);
    box->setInformativeText(message);
    return box;
}

} // namespace

void showAlert(QWidget *window, const QString &title, const QString &message)
{
    QMessageBox *box = makeBox(window, title, message);
    box->setDefaultButton(box->addButton(u"OK"_s, QMessageBox::AcceptRole));
    box->open();
}

void confirm(QWidget *window, const Destruction &destruction, const std::function<void()> &act)
{
    QMessageBox *box = makeBox(window, destruction.title, destruction.message);
    QPushButton *action = box->addButton(destruction.action, QMessageBox::DestructiveRole);
    QPushButton *cancel = box->addButton(u"Annuler"_s, QMessageBox::RejectRole);
    makeDestructive(action);
    box->setDefaultButton(cancel);
    box->setEscapeButton(cancel);
    QObject::connect(action, &QPushButton::clicked, window, act);
    box->open();
}

} // namespace quenoria
