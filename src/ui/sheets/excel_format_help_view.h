#pragma once

#include "ui/kit/sheet.h"
#include "ui/sheets/template_export.h"

namespace quenoria {

class StatusLabel;

/// Tells how a workbook must look to be imported, and saves a blank one to fill in.
class ExcelFormatHelpView : public Sheet {
    Q_OBJECT

public:
    ExcelFormatHelpView(FilePanels &panels, const Resources &resources, QWidget *parent);

private:
    void addTexts();
    void addSection(const QString &title, const QStringList &lines);
    void addExport();

    TemplateExport m_export;
    StatusLabel *m_result;
};

} // namespace quenoria
