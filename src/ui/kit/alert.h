#pragma once

#include <QString>

#include <functional>
#include <vector>

class QDialog;
class QWidget;

namespace quenoria {

/// Tells the user something over the window: a title, a message and "OK". Gives the alert, which
/// deletes itself once it is left.
QWidget *showAlert(QWidget *window, const QString &title, const QString &message);

/// Tells of a failure and offers to try again ("Réessayer") or not ("Plus tard").
QWidget *offerToRetry(QWidget *window, const QString &title, const QString &message,
                      const std::function<void()> &retry);

/// One way to answer a question.
struct AlertChoice {
    QString text;
    std::function<void()> act;
};

/// showAlert() with something else that can be done about it. "OK" stays the default, and what
/// Escape means.
QWidget *showAlert(QWidget *window, const QString &title, const QString &message,
                   const AlertChoice &other);

/// Asks the user over the window to decide. The last choice is the one that changes nothing: it is
/// the default, and what Escape means.
QWidget *offerChoices(QWidget *window, const QString &title, const QString &message,
                      const std::vector<AlertChoice> &choices);

/// Opens the dialog over whatever stands over the window, since two side by side would block each
/// other. When that goes by itself, the dialog stays, over the window alone.
void openInFront(QDialog *dialog, QWidget *window);

/// What must be asked before it is done, since it cannot be undone.
struct Destruction {
    QString title;
    QString message;
    QString action; ///< text of the button that does it
};

/// Asks over the window, and acts when the user insists. Escape and "Annuler" do nothing.
void confirm(QWidget *window, const Destruction &destruction, const std::function<void()> &act);

} // namespace quenoria
