#pragma once

#include <QString>

#include <functional>

class QWidget;

namespace quenoria {

/// What is asked before something unusual is done.
struct Objection {
    QString title;
    QString message;
    QString action;             ///< text of the button that does it all the same
    bool canBeSilenced = false; ///< offers "Ne plus demander"
};

/// Asks over the window, and acts when the user insists, with his wish not to be asked again.
/// Escape and "Annuler" do nothing. Gives the question, which deletes itself once it is left.
QWidget *askWhether(QWidget *window, const Objection &objection,
                    const std::function<void(bool never)> &act);

} // namespace quenoria
