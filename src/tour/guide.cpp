#include "tour/guide.h"

#include "ui/kit/theme.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFileDialog>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTimer>

#include <iostream>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace quenoria {

namespace {

constexpr auto glance = 50ms; ///< between two looks at what is awaited

void letLive(std::chrono::milliseconds duration)
{
    QEventLoop loop;
    QTimer::singleShot(duration, &loop, &QEventLoop::quit);
    loop.exec();
}

void pressKey(QWidget *widget, Qt::Key key, const QString &text = {})
{
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, Qt::NoModifier, text);
        QCoreApplication::sendEvent(widget, &event);
    }
}

QModelIndex findIn(const QAbstractItemModel &model, const QString &contact, const QString &column)
{
    int cell = -1;
    int name = -1;
    for (int section = 0; section < model.columnCount(); ++section) {
        const QString header = model.headerData(section, Qt::Horizontal).toString();
        if (header == column)
            cell = section;
        if (header == u"Contact"_s)
            name = section;
    }
    for (int row = 0; row < model.rowCount(); ++row) {
        if (model.index(row, name).data().toString().startsWith(contact))
            return model.index(row, cell);
    }
    return {};
}

} // namespace

Guide::Guide(QWidget &window, const QString &pictureFolder)
    : m_window(window), m_pictures(pictureFolder)
{
}

void Guide::say(const QString &line)
{
    std::cout << (++m_lines) << ". " << line.toStdString() << std::endl;
}

QWidget *Guide::front() const
{
    QWidget *modal = QApplication::activeModalWidget();
    return modal ? modal : &m_window;
}

bool Guide::hasSheet() const { return front() != &m_window; }

template <typename Widget>
Widget *Guide::find(const std::function<bool(const Widget *)> &matches, const QString &what) const
{
    for (Widget *widget : front()->findChildren<Widget *>()) {
        if (widget->isVisible() && matches(widget))
            return widget;
    }
    throw TourFailure(u"« %1 » est introuvable dans « %2 »."_s.arg(what, front()->windowTitle()));
}

void Guide::press(const QString &text)
{
    // A command without room for its button is in the menus all the same.
    for (QAction *entry : front()->findChildren<QAction *>()) {
        if (entry->text() == text && entry->isEnabled() && !entry->isCheckable()) {
            QTimer::singleShot(0, entry, &QAction::trigger);
            return letLive(4 * glance);
        }
    }
    auto *button = find<QAbstractButton>(
        [&text](const QAbstractButton *candidate) {
            return QString(candidate->text()).remove(u'&') == text;
        },
        text);
    if (!button->isEnabled())
        throw TourFailure(u"Le bouton « %1 » n’est pas disponible."_s.arg(text));
    // The press may open a dialog that only returns once it is closed.
    QTimer::singleShot(0, button, &QAbstractButton::click);
    letLive(4 * glance);
}

void Guide::check(const QString &text, bool on)
{
    const auto *box = find<QAbstractButton>(
        [&text](const QAbstractButton *candidate) { return candidate->text() == text; }, text);
    if (box->isChecked() != on)
        press(text);
}

void Guide::type(const QString &field, const QString &text)
{
    const auto isField = [&field](const QWidget *widget) {
        return widget->accessibleName() == field && (qobject_cast<const QLineEdit *>(widget) ||
                                                     qobject_cast<const QPlainTextEdit *>(widget));
    };
    QWidget *target = find<QWidget>(isField, field);
    target->setFocus();
    if (auto *line = qobject_cast<QLineEdit *>(target))
        line->selectAll();
    else if (auto *box = qobject_cast<QPlainTextEdit *>(target))
        box->selectAll();
    pressKey(target, Qt::Key_Delete);
    for (const QChar character : text)
        pressKey(target, Qt::Key_unknown, QString(character));
}

QAbstractItemView &Guide::table() const
{
    const auto isTable = [](const QAbstractItemView *view) {
        return findIn(*view->model(), {}, u"STOP"_s).isValid();
    };
    return *find<QAbstractItemView>(isTable, u"liste des contacts"_s);
}

void Guide::goTo(const QString &contact, const QString &column)
{
    QAbstractItemView &view = table();
    const QModelIndex index = findIn(*view.model(), contact, column);
    if (!index.isValid())
        throw TourFailure(u"Le contact « %1 » n’est pas dans la liste."_s.arg(contact));
    view.setCurrentIndex(index);
    view.setFocus();
}

void Guide::useCell(const QString &contact, const QString &column)
{
    goTo(contact, column);
    pressKey(&table(), Qt::Key_Space, u" "_s);
    letLive(glance);
}

void Guide::closeSheet()
{
    pressKey(front(), Qt::Key_Escape);
    untilSheetIsClosed();
}

/// Whoever pressed waits for the panel to be closed: it is looked for beside that.
void Guide::pressAndChoose(const QString &text, const QString &file, const QString &picture)
{
    QTimer look;
    look.callOnTimeout([&] {
        auto *panel = qobject_cast<QFileDialog *>(front());
        if (!panel)
            return;
        look.stop();
        this->picture(picture);
        if (auto *name = panel->findChild<QLineEdit *>(u"fileNameEdit"_s)) // the toolkit's name
            name->setText(file);
        static_cast<QDialog *>(panel)->accept();
        if (panel->isVisible())
            panel->reject();
    });
    look.start(glance);
    press(text);
}

void Guide::until(const QString &what, const std::function<bool()> &holds,
                  std::chrono::milliseconds limit)
{
    QElapsedTimer waited;
    waited.start();
    while (!holds()) {
        if (std::chrono::milliseconds(waited.elapsed()) > limit)
            throw TourFailure(u"Attendu en vain : %1."_s.arg(what));
        letLive(glance);
    }
}

void Guide::untilSheetIsOpen()
{
    until(u"l’ouverture de la feuille"_s, [this] { return hasSheet(); });
    letLive(4 * glance);
}

void Guide::untilSheetIsClosed(std::chrono::milliseconds limit)
{
    until(
        u"la fermeture de la feuille"_s, [this] { return !hasSheet(); }, limit);
}

void Guide::picture(const QString &name)
{
    letLive(2 * glance);
    applyTheme(Appearance::dark);
    save(u"sombre"_s, name);
    applyTheme(Appearance::light);
    save(u"clair"_s, name);
}

void Guide::save(const QString &folder, const QString &name) const
{
    letLive(glance);
    const QDir pictures(m_pictures);
    const QString path = pictures.filePath(u"%1/%2.png"_s.arg(folder, name));
    if (!pictures.mkpath(folder) || !front()->grab().save(path))
        throw TourFailure(u"L’image %1 n’a pas pu être écrite."_s.arg(path));
}

} // namespace quenoria
