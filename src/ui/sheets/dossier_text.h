#pragma once

#include "store/contact_dossier.h"

#include <QTimeZone>

namespace quenoria {

/// What is known under one name. A text of the user's stands there as he wrote it.
struct DossierLine {
    QString name; ///< empty when the section's title says it
    QString value;
    bool operator==(const DossierLine &) const = default;
};

struct DossierSection {
    QString title;
    std::vector<DossierLine> lines;
};

/// The dossier as its page shows it, moments in the user's zone.
[[nodiscard]] std::vector<DossierSection> dossierSections(const ContactDossier &dossier,
                                                          const QTimeZone &zone);

} // namespace quenoria
