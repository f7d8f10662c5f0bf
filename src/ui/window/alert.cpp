#include "ui/window/alert.h"

#include "ui/kit/button_role.h"
#include "ui/kit/labels.h"
#include "ui/kit/symbol.h"

#include <QLabel>
#include <QMessageBox>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

constexpr int symbolSide = 32;

QMessageBox *makeBox(QWidget *window, const QIcon &icon, const QString &title,
                     const QString &message)
{
    auto *box = new QMessageBox(window);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setWindowModality(Qt::WindowModal);
    box->setWindowTitle(title);
    box->setIconPixmap(icon.pixmap(QSize(symbolSide, symbolSide), window->devicePixelRatio()));
    box->setTextFormat(Qt::PlainText);
    box->setText(title);
    box->setInformativeText(message);
    if (auto *heading = box->findChild<QLabel *>(u"qt_msgbox_label"_s))
        heading->setFont(styledFont(TextStyle::headline));
    return box;
}

} // namespace

void showAlert(QWidget *window, const QString &title, const QString &message)
{
    QMessageBox *box = makeBox(window, symbol(u"info.circle"_s, Tint::accent), title, message);
    box->setDefaultButton(box->addButton(u"OK"_s, QMessageBox::AcceptRole));
    box->open();
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
    box->open();
}

} // namespace quenoria
