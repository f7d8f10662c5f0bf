#pragma once

#include "platform/carriers.h"
#include "ui/kit/sheet.h"

namespace quenoria {

class LengthLine;
class StatusLabel;
class TextBox;

/// A message ready to be sent by hand through the chosen carrier, on a desktop without an
/// application of its own for that. It is sent once: only what has certainly not left may be sent
/// again.
class NewMessageView : public Sheet {
    Q_OBJECT

public:
    NewMessageView(Carriers &carriers, const Composition &message, QWidget *parent);

private:
    void addParts();
    void addButtons();
    void send();
    static QString outcomeWords(const Carriers &carriers, const TransportResult &result);
    void showOutcome(const TransportResult &result, const QString &words);

    Carriers &m_carriers;
    Composition m_message;
    TextBox *m_body;
    LengthLine *m_length;
    StatusLabel *m_outcome;
    QPushButton *m_send;
};

} // namespace quenoria
