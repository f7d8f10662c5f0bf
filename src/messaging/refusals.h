#pragma once

#include <QString>

namespace quenoria {

/// The file recorded for the contact is no longer where it was; said on both channels.
inline const QString attachmentGone =
    QStringLiteral("Le fichier joint a été déplacé ou supprimé. Choisissez-le à nouveau.");

} // namespace quenoria
