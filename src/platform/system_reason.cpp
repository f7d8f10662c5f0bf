#include "platform/system_reason.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

struct Reason {
    int error;
    const char16_t *text;
};

constexpr std::array reasons{
    Reason{EACCES, u"les droits d’accès ne le permettent pas"},
    Reason{EBUSY, u"un autre programme l’utilise"},
    Reason{EDQUOT, u"votre quota de place sur le disque est atteint"},
    Reason{EEXIST, u"ce nom est déjà pris"},
    Reason{EFBIG, u"le fichier dépasserait la taille permise"},
    Reason{EIO, u"le disque ne répond pas correctement"},
    Reason{EISDIR, u"c’est un dossier"},
    Reason{ELOOP, u"trop de liens se suivent"},
    Reason{EMFILE, u"trop de fichiers sont ouverts"},
    Reason{ENAMETOOLONG, u"le nom est trop long"},
    Reason{ENFILE, u"trop de fichiers sont ouverts"},
    Reason{ENODEV, u"le disque n’est plus là"},
    Reason{ENOENT, u"le fichier ou le dossier n’existe pas"},
    Reason{ENOMEM, u"la mémoire manque"},
    Reason{ENOSPC, u"il n’y a plus de place sur le disque"},
    Reason{ENOTDIR, u"ce n’est pas un dossier"},
    Reason{ENXIO, u"le disque n’est plus là"},
    Reason{EPERM, u"le système ne le permet pas"},
    Reason{EROFS, u"le disque est en lecture seule"},
    Reason{ESTALE, u"le partage de réseau n’est plus là"},
};

} // namespace

QString systemReason(int error)
{
    const auto *known = std::ranges::find(reasons, error, &Reason::error);
    return known != reasons.end() ? QString::fromUtf16(known->text) : qt_error_string(error);
}

QString systemReason(const QString &words)
{
    const auto *known = std::ranges::find_if(
        reasons, [&words](const Reason &reason) { return qt_error_string(reason.error) == words; });
    return known != reasons.end() ? QString::fromUtf16(known->text) : words;
}

} // namespace quenoria
