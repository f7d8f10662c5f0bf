#pragma once

#include "ui/kit/sheet.h"

namespace quenoria {

class FilePanels;
class Resources;

/// Tells how a workbook must look to be imported, and saves a blank one to fill in.
class ExcelFormatHelpView : public Sheet {
    Q_OBJECT

public:
    ExcelFormatHelpView(FilePanels &panels, const Resources &resources, QWidget *parent);
};

} // namespace quenoria
