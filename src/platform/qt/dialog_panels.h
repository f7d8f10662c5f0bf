#pragma once

#include "platform/file_panels.h"
#include "platform/preferences.h"

class QFileDialog;

namespace quenoria {

/// The toolkit's own file dialogs: the desktop's cannot show a message beside the files.
class DialogPanels : public FilePanels {
public:
    /// The last folder used is kept in the preferences.
    explicit DialogPanels(Preferences &preferences) : m_preferences(preferences) {}

    [[nodiscard]] std::optional<QString> chooseFile(const OpenPanel &panel) override;
    [[nodiscard]] std::optional<QString> chooseDestination(const SavePanel &panel) override;

private:
    std::optional<QString> run(QFileDialog &dialog);

    Preferences &m_preferences;
};

} // namespace quenoria
