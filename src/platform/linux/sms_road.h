#pragma once

#include "platform/carriers.h"
#include "platform/messages_transport.h"

#include <memory>

namespace quenoria {

/// What a card made of its PIN.
struct PinAnswer {
    enum class Kind {
        taken,
        wrong,  ///< one of its few tries is gone
        failed, ///< it was not reached
    };
    Kind kind = Kind::failed;
    QString words = {}; ///< why it was not taken
};

/// One kind of carrier for SMS, with its devices. A further kind is one class like this and one
/// line where the desktop lists them. It belongs to the main thread and waits for nothing; its
/// transports work on the threads of scripts.
class SmsRoad : public QObject {
    Q_OBJECT

public:
    /// The first word of the ids of its carriers: "modem" in "modem:490154203237518".
    [[nodiscard]] virtual QString kind() const = 0;

    [[nodiscard]] virtual bool takesFiles() const = 0;

    /// "remis au modem"
    [[nodiscard]] virtual QString handover() const = 0;

    /// For a device that need not be there at the moment.
    [[nodiscard]] virtual std::shared_ptr<MessagesTransport>
    transport(const QString &device) const = 0;

    /// Looks for devices from now on.
    virtual void watch() = 0;

    /// Its devices, or one carrier without id that tells why there is none.
    [[nodiscard]] virtual std::vector<Carrier> found() const = 0;

    /// Gives the device's card its PIN, once; pinAnswered() tells the outcome.
    virtual void unlock(const QString &device, const QString &pin) = 0;

    /// Of one device; an empty question ends it.
    virtual void listen(const QString &device, const MayRead &mayRead) = 0;

Q_SIGNALS:
    void changed();
    void pinAnswered(const quenoria::PinAnswer &answer);
    void received(const quenoria::ReceivedMessage &message);
};

} // namespace quenoria
