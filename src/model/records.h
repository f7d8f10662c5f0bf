#pragma once

#include "model/field.h"
#include "model/instant.h"

#include <QString>

#include <optional>
#include <tuple>
#include <vector>

namespace quenoria {

/// One contact as the user sees it. Never rewritten once made: an edit is a ContactOverride.
struct Prospect {
    QString id;                        ///< mobile digits, or "email:" and the lower-case address
    QString label;                     ///< display name, built by the creating operation
    QString phone;                     ///< as shown ("06 39 98 00 10"), empty without a mobile
    std::optional<QString> email;      ///< lower case
    QString department;                ///< code ("29", "2A", "971"), possibly empty
    bool isCustom = false;             ///< added by hand or by import
    std::optional<QString> profession; ///< trade
    bool operator==(const Prospect &) const = default;

    static constexpr auto fields = std::tuple{
        Field{"id", &Prospect::id},
        Field{"label", &Prospect::label},
        Field{"phone", &Prospect::phone},
        Field{"email", &Prospect::email},
        Field{"department", &Prospect::department},
        Field{"isCustom", &Prospect::isCustom},
        Field{"profession", &Prospect::profession},
    };
};

/// The values that replace a contact's own once the user has edited it.
struct ContactOverride {
    QString label;
    QString phone;                ///< display form, or empty
    std::optional<QString> email; ///< absent: the contact has no address any more
    QString department;
    std::optional<QString> profession; ///< absent: the contact keeps its own trade
    bool operator==(const ContactOverride &) const = default;

    static constexpr auto fields = std::tuple{
        Field{"label", &ContactOverride::label},
        Field{"phone", &ContactOverride::phone},
        Field{"email", &ContactOverride::email},
        Field{"department", &ContactOverride::department},
        Field{"profession", &ContactOverride::profession},
    };
};

/// A French department known to the application.
struct DepartmentInfo {
    QString code; ///< "01" to "95", "2A", "2B", or a three-digit overseas code
    QString name;
    bool operator==(const DepartmentInfo &) const = default;

    static constexpr auto fields = std::tuple{
        Field{"code", &DepartmentInfo::code},
        Field{"name", &DepartmentInfo::name},
    };
};

/// SMS tracking of one contact; its STOP flag governs both channels.
struct SendStatus {
    bool sent = false;
    Instant sentAt;                                  ///< latest send, or when the record was made
    std::optional<QString> comment;                  ///< the user's free comment
    std::optional<bool> stopped;                     ///< true: the contact wants no more messages
    std::optional<std::vector<Instant>> sendHistory; ///< confirmed sends, oldest first
    bool operator==(const SendStatus &) const = default;

    static constexpr auto fields = std::tuple{
        Field{"sent", &SendStatus::sent},
        Field{"sentAt", &SendStatus::sentAt},
        Field{"comment", &SendStatus::comment},
        Field{"stopped", &SendStatus::stopped},
        Field{"sendHistory", &SendStatus::sendHistory},
    };
};

/// E-mail tracking of one contact.
struct EmailSendStatus {
    bool sent = false;
    Instant sentAt;
    std::optional<std::vector<Instant>> sendHistory; ///< confirmed sends, oldest first
    bool operator==(const EmailSendStatus &) const = default;

    static constexpr auto fields = std::tuple{
        Field{"sent", &EmailSendStatus::sent},
        Field{"sentAt", &EmailSendStatus::sentAt},
        Field{"sendHistory", &EmailSendStatus::sendHistory},
    };
};

/// A text to send as an SMS, without placeholders.
struct MessageTemplate {
    QString id;
    QString title; ///< shown in pickers
    QString body;
    bool operator==(const MessageTemplate &) const = default;

    static constexpr auto fields = std::tuple{
        Field{"id", &MessageTemplate::id},
        Field{"title", &MessageTemplate::title},
        Field{"body", &MessageTemplate::body},
    };
};

/// A text to send as an e-mail, without placeholders.
struct EmailTemplate {
    QString id;
    QString title; ///< shown in pickers
    QString subject;
    QString body;
    bool operator==(const EmailTemplate &) const = default;

    static constexpr auto fields = std::tuple{
        Field{"id", &EmailTemplate::id},
        Field{"title", &EmailTemplate::title},
        Field{"subject", &EmailTemplate::subject},
        Field{"body", &EmailTemplate::body},
    };
};

/// A message that is handed to a carrier while its outcome is not recorded yet.
struct SendIntent {
    QString contact;   ///< id
    QString channel;   ///< "sms" or "email"
    QString label;     ///< of the contact, which may be deleted meanwhile
    QString recipient; ///< number or address, as it was handed over
    Instant instant;
    QString digest;             ///< of subject, text and attachment path: SHA-256 in hexadecimal
    std::vector<Instant> known; ///< sends of that second or later that the history already held
    bool operator==(const SendIntent &) const = default;

    static constexpr auto fields = std::tuple{
        Field{"contact", &SendIntent::contact}, Field{"channel", &SendIntent::channel},
        Field{"label", &SendIntent::label},     Field{"recipient", &SendIntent::recipient},
        Field{"instant", &SendIntent::instant}, Field{"digest", &SendIntent::digest},
        Field{"known", &SendIntent::known},
    };
};

} // namespace quenoria
