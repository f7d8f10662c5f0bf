#pragma once

#include "model/instant.h"
#include "platform/sharing_services.h"
#include "platform/transport_result.h"

#include <QFuture>
#include <QObject>

#include <functional>
#include <optional>
#include <vector>

namespace quenoria {

/// What can be done about a carrier that is not ready.
enum class CarrierState { ready, asksForPin, unavailable, notInstalled };

/// One way for an SMS to leave this computer, as the user chooses it.
struct Carrier {
    QString id;   ///< stable between two starts; empty for one that cannot be chosen
    QString name; ///< "Huawei E3372"
    CarrierState state = CarrierState::unavailable;
    QString words;                     ///< the state, as the user reads it
    QString command;                   ///< what to type in a terminal to get further, or empty
    QString road;                      ///< what leaves the computer, and by which road
    std::optional<uint> pinTries = {}; ///< before the card blocks, when that is known
    bool keepsPin = false;             ///< the keyring has its PIN, for when it asks again
    bool operator==(const Carrier &) const = default;
};

/// What becomes of a PIN once the card took it.
enum class PinUse { once, kept };

struct ReceivedMessage {
    QString number;
    QString text;
    Instant date;
    bool operator==(const ReceivedMessage &) const = default;
};

/// Whether a message from the number at that time may be read at all. Asked on the main thread.
using MayRead = std::function<bool(const QString &number, Instant date)>;

/// The ways for an SMS to leave this computer, and the one that the user chose, which stands
/// behind the Messages application of scripts. All of it belongs to the main thread, and nothing
/// waits: what takes time is announced.
class Carriers : public QObject {
    Q_OBJECT

public:
    /// Looks for carriers from now on; changed() tells what was found.
    virtual void watch() = 0;

    [[nodiscard]] virtual std::vector<Carrier> found() const = 0;

    /// Id of the carrier that the user chose, also while it is not there; empty without a choice.
    [[nodiscard]] virtual QString chosen() const = 0;
    virtual void choose(const QString &id) = 0;

    /// Whether the chosen carrier takes files; true without a choice, where nothing is sent.
    [[nodiscard]] virtual bool takesFiles() const = 0;

    /// "remis au modem": what a message is that the chosen carrier took.
    [[nodiscard]] virtual QString handover() const = 0;

    /// Whether the choice is fixed, as in a demonstration.
    [[nodiscard]] virtual bool isFixed() const = 0;

    /// Gives the SIM card its PIN; unlocked() tells the outcome. A PIN that is to be kept goes to
    /// the keyring, and is given again when the carrier is the chosen one and asks for it.
    virtual void unlock(const QString &id, const QString &pin, PinUse use) = 0;
    virtual void forgetPin(const QString &id) = 0;

    /// Sends through the chosen carrier, text before file, and finishes with the outcome. The
    /// number and the file may be empty.
    [[nodiscard]] virtual QFuture<TransportResult> send(const Composition &message) = 0;

    /// Reads from now on the received messages that may be read, and announces each; an empty
    /// question ends that.
    virtual void listen(const MayRead &mayRead) = 0;

Q_SIGNALS:
    /// What was found, its state or the choice is another.
    void changed();

    /// Absent: the card took the PIN.
    void unlocked(const std::optional<QString> &refusal);

    /// Whether the keyring took the PIN that it was to keep.
    void pinKept(bool isKept);

    void received(const quenoria::ReceivedMessage &message);

    /// The desktop has no application for messages of its own: the window is asked to show this
    /// one, unsent.
    void composeRequested(const quenoria::Composition &message);

    /// What came of a message that the window composed, in words.
    void composeAnswered(const quenoria::Composition &message, const QString &outcome);
};

} // namespace quenoria
