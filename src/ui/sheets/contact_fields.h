#pragma once

#include "store/prospect_store.h"

namespace quenoria {

using ContactFields = ProspectStore::ContactEdit;

/// What the form for a new contact opens with.
[[nodiscard]] ContactFields newContactFields();

/// What the form for an existing contact opens with. The name and the commune are read back from
/// the label that adding, editing or importing built:
///
///   "ACME — BREST (29) — 06 39 98 00 10" -> "ACME", "BREST"
///   "ACME — AJOUT MANUEL (29)"           -> "ACME", ""
///   "ACME (2A)"                          -> "ACME", ""
///   "ACME, rue du Port"                  -> "ACME, rue du Port", ""
[[nodiscard]] ContactFields contactFields(const Prospect &prospect);

/// Whether a phone or an e-mail was typed; only the store judges whether it is a valid one.
[[nodiscard]] bool hasPhoneOrEmail(const ContactFields &fields);

} // namespace quenoria
