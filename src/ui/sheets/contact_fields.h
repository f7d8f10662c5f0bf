#pragma once

#include "store/prospect_store.h"

namespace quenoria {

using ContactFields = ProspectStore::ContactEdit;

/// What the form for a new contact opens with.
[[nodiscard]] ContactFields newContactFields();

/// What the form for an existing contact opens with.
[[nodiscard]] ContactFields contactFields(const Prospect &prospect);

/// Whether a phone or an e-mail was typed; only the store judges whether it is a valid one.
[[nodiscard]] bool hasPhoneOrEmail(const ContactFields &fields);

} // namespace quenoria
