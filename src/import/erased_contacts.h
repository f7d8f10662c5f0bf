#pragma once

#include "import/prospect_excel_importer.h"
#include "store/erased_keys.h"

namespace quenoria {

struct ContactDossier;

/// Every key under which an import would know the contact, whatever form its number has.
[[nodiscard]] IdSet keysForImports(const ContactDossier &dossier);

/// Whether the address is of somebody who was erased.
[[nodiscard]] bool isErasedAddress(const ErasedKeys &erased, const std::optional<QString> &address);

/// Whether a row that would be a new contact is of somebody who was erased.
[[nodiscard]] bool isErasedContact(const ErasedKeys &erased, const QString &key,
                                   const std::optional<QString> &address);

/// Takes out of an analysis whom an import must not bring back: new contacts with the number or the
/// address of somebody who was erased, and such addresses for known contacts. How many they were.
[[nodiscard]] std::size_t leaveOutErased(ProspectImportAnalysis &analysis,
                                         const ErasedKeys &erased);

} // namespace quenoria
