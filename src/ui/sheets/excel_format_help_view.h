#pragma once

#include "ui/kit/sheet.h"
#include "ui/sheets/template_export.h"

namespace quenoria {

class StatusLabel;
struct Platform;

/// Tells how a workbook must look to be imported, and saves a blank one to fill in.
class ExcelFormatHelpView : public Sheet {
    Q_OBJECT

public:
    ExcelFormatHelpView(const Platform &platform, QWidget *parent);

private:
    void addTexts();
    void addSection(const QString &title, const QStringList &lines);
    void addExport();

    TemplateExport m_export;
    StatusLabel *m_result;
};

} // namespace quenoria
