#pragma once

#include "ui/kit/sheet.h"
#include "ui/sheets/template_editor.h"

class QLineEdit;

namespace quenoria {

class LengthLine;
class StatusLabel;
class TextBox;
class TextLabel;

/// Creates, edits and deletes the templates of one channel.
class TemplateManagerView : public Sheet {
    Q_OBJECT

public:
    TemplateManagerView(ProspectStore &store, const ChannelDescriptor &channel, QWidget *parent);

    bool hasUnsavedInput() const override { return m_editor.isChanged(); }

protected:
    void saveInput() override;

private:
    void addSelectionRow();
    void addFields();
    void addBottomRow();
    void refresh();
    void refreshLength();
    void refreshBlanks();

    const ChannelDescriptor &m_channel;
    const ChannelTemplates &m_templates;
    TemplateEditor m_editor;
    ChoicePicker *m_picker;
    QPushButton *m_remove;
    QLineEdit *m_title;
    QLineEdit *m_subject;
    TextBox *m_body;
    LengthLine *m_length;  ///< of the channel whose texts are counted
    StatusLabel *m_blanks; ///< what is left to be filled in
    StatusLabel *m_message;
};

} // namespace quenoria
