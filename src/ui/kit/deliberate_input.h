#pragma once

#include <QObject>

class QApplication;

namespace quenoria {

/// Takes one gesture of the hand for one act, in every window of the application: a held key, the
/// second press of a double click and a wheel that passes over a closed picker or a date do
/// nothing. What sends, records, ticks or deletes never has to ask for itself.
class DeliberateInput : public QObject {
public:
    /// Watches the application for as long as it lives.
    explicit DeliberateInput(QApplication &application);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
};

} // namespace quenoria
