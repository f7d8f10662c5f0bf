#pragma once

#include <QString>

#include <optional>

namespace quenoria {

/// An e-mail as a script makes it.
struct MailDraft {
    QString address;
    QString subject;
    QString body;
    std::optional<QString> attachmentPath;
};

enum class MailDelivery {
    Draft,     ///< shown to the user, unsent
    Immediate, ///< sent at once, never shown
};

/// The script that tells Mail to make the message, with its file below the text.
[[nodiscard]] QString mailScript(const MailDraft &draft, MailDelivery delivery);

} // namespace quenoria
