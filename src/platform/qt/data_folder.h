#pragma once

#include "platform/folders.h"

namespace quenoria {

/// The data folder chosen at the start.
class DataFolder : public Folders {
public:
    explicit DataFolder(QString path) : m_path(std::move(path)) {}

    [[nodiscard]] QString data() const override { return m_path; }

private:
    QString m_path;
};

} // namespace quenoria
