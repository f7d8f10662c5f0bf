#pragma once

#include "ui/kit/sheet.h"

class QProgressBar;

namespace quenoria {

/// Shows how far a workbook has been read, over the window, which takes no other order meanwhile.
/// Left by the user, it asks for a stop.
class ImportProgress : public Sheet {
    Q_OBJECT

public:
    ImportProgress(const QString &fileName, QWidget *parent);

    void setStep(int step);

private:
    QProgressBar *m_bar;
};

} // namespace quenoria
