#pragma once

#include <QString>

namespace quenoria {

/// The file recorded for the contact is no longer where it was; said on both channels.
inline const QString attachmentGone =
    QStringLiteral("Le fichier joint a été déplacé ou supprimé. Choisissez-le à nouveau.");

/// One person's second row; said on both channels.
inline const QString servedByTwin =
    QStringLiteral("Ce contact figure deux fois dans la liste : ses messages partent de l’autre "
                   "ligne. Supprimez cette ligne-ci, ou corrigez son numéro ou son adresse.");

} // namespace quenoria
