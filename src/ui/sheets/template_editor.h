#pragma once

#include "ui/channels/channel_descriptor.h"
#include "ui/sheets/choice_picker.h"

namespace quenoria {

/// State of a template manager: which template is shown, what is typed, what came of the last
/// command. The draft belongs to the user until another template is selected.
class TemplateEditor {
public:
    TemplateEditor(ProspectStore &store, const ChannelDescriptor &channel);

    TemplateDraft draft;

    std::vector<Choice> choices() const; ///< the templates in store order, then the new one
    const QString &selectedID() const { return m_selectedID; }
    bool canRemove() const;
    bool isChanged() const; ///< the draft is not what the store holds
    const QString &message() const { return m_message; }
    Tint messageTint() const { return m_messageTint; }

    /// Loads the template's texts; one that is gone gives the default template.
    void select(const QString &id);
    void startNew() { select(m_templates.newID); }
    void removeSelected();
    void save();

private:
    std::optional<TemplateDraft> stored(const QString &id) const;
    void say(const QString &message, Tint tint);

    ProspectStore &m_store;
    Channel m_channel;
    const ChannelTemplates &m_templates;
    const QString &m_defaultID;
    QString m_selectedID;
    QString m_message;
    Tint m_messageTint = Tint::negative;
};

} // namespace quenoria
