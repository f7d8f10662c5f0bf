#pragma once

#include <QHash>
#include <QKeySequence>
#include <QObject>

class QAction;
class QMenu;
class QWidget;

namespace quenoria {

/// Gives every button of a window an Alt+letter that no other button of it has. The letters are
/// chosen from the texts as they are shown, which stay as they are written: the style underlines.
///
/// Not for message boxes: there the toolkit takes the letter without Alt as well, and one typed for
/// a field would answer a question that has just opened.
class Mnemonics : public QObject {
public:
    /// Watches the window for as long as it lives: buttons come, and their texts change.
    explicit Mnemonics(QWidget *window);

    /// Where the letter of the shortcut stands in the text, or -1.
    static qsizetype placeOf(const QKeySequence &shortcut, const QString &text);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void assign();

    QWidget *m_window;
};

/// Gives every entry of a menu a letter that no other entry of it has, for as long as the menu is
/// open: closed, the texts are as they were written, since buttons and other menus show them too.
class MenuMnemonics : public QObject {
    Q_OBJECT

public:
    /// Follows the menu for as long as it lives; a second call changes nothing.
    static void follow(QMenu &menu);

private:
    explicit MenuMnemonics(QMenu &menu);
    void assign();
    void takeBack();

    QMenu &m_menu;
    QHash<QAction *, qsizetype> m_places; ///< of the letters' marks
};

} // namespace quenoria
