#pragma once

#include <QString>
#include <QWidget>

#include <chrono>
#include <functional>
#include <stdexcept>

class QAbstractItemView;

namespace quenoria {

/// The visit did not find what it was looking for; what() says what, in French.
class TourFailure : public std::runtime_error {
public:
    explicit TourFailure(const QString &reason) : std::runtime_error(reason.toStdString()) {}
};

/// Does with the real widgets what a user does with hands and eyes: presses, ticks, types, waits
/// for something to appear and takes its picture. Everything happens in the sheet in front, or in
/// the main window when no sheet is open.
class Guide {
public:
    Guide(QWidget &window, const QString &pictureFolder);

    /// One numbered line on the standard output.
    void say(const QString &line);

    /// Writes clair/NAME.png and sombre/NAME.png.
    void picture(const QString &name);

    /// A button, an entry of a menu bar or a checkbox, by its text.
    void press(const QString &text);
    void check(const QString &text, bool on);

    /// Replaces the text of the field with that accessible name.
    void type(const QString &field, const QString &text);

    /// Makes the cell current, as a click beside its buttons does.
    void goTo(const QString &contact, const QString &column);

    /// Presses Space on the cell: it toggles, or opens what it holds.
    void useCell(const QString &contact, const QString &column);

    void closeSheet();

    /// Presses what opens a file panel, and gives it the file once its picture was taken. Without a
    /// panel nothing happens.
    void pressAndChoose(const QString &text, const QString &file, const QString &picture);

    /// Lets the application live until the condition holds.
    void until(const QString &what, const std::function<bool()> &holds,
               std::chrono::milliseconds limit = std::chrono::seconds{10});
    void untilSheetIsOpen();
    void untilSheetIsClosed(std::chrono::milliseconds limit = std::chrono::seconds{10});

    QWidget *front() const;
    bool hasSheet() const;

private:
    template <typename Widget>
    Widget *find(const std::function<bool(const Widget *)> &matches, const QString &what) const;
    QAbstractItemView &table() const;
    void save(const QString &folder, const QString &name) const;

    QWidget &m_window;
    QString m_pictures;
    int m_lines = 0;
};

} // namespace quenoria
