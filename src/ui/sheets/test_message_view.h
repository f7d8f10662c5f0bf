#pragma once

#include "ui/kit/sheet.h"

class QLineEdit;

namespace quenoria {

class ChoicePicker;
class LengthLine;
class PreviewBox;
class ProspectStore;
class StatusLabel;

/// Tries a message template on the user's own number.
class TestMessageView : public Sheet {
    Q_OBJECT

public:
    TestMessageView(ProspectStore &store, QWidget *parent);

private:
    void addNumber();
    void addPreview();
    void addBottomRow();
    void refresh();
    void prepare();

    ProspectStore &m_store;
    QString m_selectedID;
    ChoicePicker *m_picker;
    QLineEdit *m_number;
    PreviewBox *m_preview;
    LengthLine *m_length;
    StatusLabel *m_error;
};

} // namespace quenoria
