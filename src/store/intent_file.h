#pragma once

#include "model/records.h"
#include "platform/platform.h"
#include "store/refusal.h"

namespace quenoria {

/// The messages that were handed to a carrier and whose outcome is not recorded yet, in one small
/// file beside the collections. Every change is on the disk when the call returns; the file is
/// there only while there is something to remember.
class IntentFile {
public:
    /// Reads what an earlier process left. A file that cannot be read is renamed aside.
    explicit IntentFile(const Platform &platform);

    static QString fileName(); ///< in the data folder

    const std::vector<SendIntent> &intents() const { return m_intents; }

    /// Says why the intent is not on the disk; then it is not kept either.
    [[nodiscard]] Refusal add(const SendIntent &intent);

    /// An intent that could not be taken off the disk goes with the next change.
    void remove(const SendIntent &intent);

private:
    [[nodiscard]] Refusal write() const;

    Platform m_platform;
    QString m_path;
    std::vector<SendIntent> m_intents;
};

} // namespace quenoria
