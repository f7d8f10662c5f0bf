#pragma once

#include <QString>

namespace quenoria {

class FilePanels;
class FileWriter;
class Resources;

/// Saves the blank workbook that the application ships to a place of the user's choice.
class TemplateExport {
public:
    TemplateExport(FilePanels &panels, const Resources &resources, FileWriter &files);

    /// A cancelled panel leaves the last outcome as it is.
    void saveTemplate();

    const QString &resultMessage() const { return m_resultMessage; } ///< empty before the first
    bool resultIsError() const { return m_resultIsError; }

private:
    FilePanels &m_panels;
    const Resources &m_resources;
    FileWriter &m_files;
    QString m_resultMessage;
    bool m_resultIsError = false;
};

} // namespace quenoria
