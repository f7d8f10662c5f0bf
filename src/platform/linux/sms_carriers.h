#pragma once

#include "platform/linux/kept_pins.h"
#include "platform/linux/sms_road.h"
#include "platform/preferences.h"

#include <mutex>

namespace quenoria {

/// The choice among the roads of this desktop, which is also the transport behind the Messages
/// application: without a choice it has no service.
class SmsCarriers : public Carriers, public MessagesTransport {
    Q_OBJECT

public:
    using Roads = std::vector<std::unique_ptr<SmsRoad>>;

    SmsCarriers(Preferences &preferences, Secrets &keyring, Roads roads);

    void watch() override;
    [[nodiscard]] std::vector<Carrier> found() const override;
    [[nodiscard]] QString chosen() const override;
    void choose(const QString &id) override;
    [[nodiscard]] bool takesFiles() const override;
    [[nodiscard]] QString handover() const override;
    [[nodiscard]] bool isFixed() const override { return false; }
    void unlock(const QString &id, const QString &pin, PinUse use) override;
    void forgetPin(const QString &id) override;
    [[nodiscard]] QFuture<TransportResult> send(const Composition &message) override;
    void listen(const MayRead &mayRead) override;

    /// SMS alone: a script sends a message again as SMS when another service failed, also when
    /// that one was too slow to tell that the message had left.
    [[nodiscard]] bool offers(MessagesService service) const override;
    [[nodiscard]] TransportResult sendText(MessagesService service, const QString &handle,
                                           const QString &text) override;
    [[nodiscard]] TransportResult fileRefusal(MessagesService service,
                                              const QString &path) const override;
    [[nodiscard]] TransportResult sendFile(MessagesService service, const QString &handle,
                                           const QString &path) override;

private:
    struct Choice {
        SmsRoad *road = nullptr;
        QString device;
    };

    /// A PIN on its way to a card.
    struct GivenPin {
        QString carrier;
        QString pin;
        PinUse use = PinUse::once;
    };

    Choice resolve(const QString &id) const;
    std::shared_ptr<MessagesTransport> transport() const;
    void takeChoice();
    std::optional<Carrier> lockedChoice() const;
    void giveKeptPin();
    void give(const GivenPin &given);
    void takePinAnswer(const PinAnswer &answer);
    void settle(const GivenPin &taken);

    Preferences &m_preferences;
    KeptPins m_pins;
    std::optional<GivenPin> m_given; ///< until the card has answered
    bool m_hasOffered = false;       ///< the kept PIN, since the carrier asks for it
    Roads m_roads;
    MayRead m_mayRead;
    mutable std::mutex m_mutex;
    std::shared_ptr<MessagesTransport> m_transport; ///< null without a choice
};

} // namespace quenoria
