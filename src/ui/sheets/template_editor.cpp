#include "ui/sheets/template_editor.h"

#include "store/channel_records.h"

#include <algorithm>

namespace quenoria {

namespace {

TemplateDraft trimmed(const TemplateDraft &draft)
{
    return {draft.title.trimmed(), draft.subject.trimmed(), draft.body.trimmed()};
}

} // namespace

TemplateEditor::TemplateEditor(ProspectStore &store, const ChannelDescriptor &channel)
    : m_store(store), m_channel(channel.channel), m_templates(channel.templates),
      m_defaultID(channelRecords(m_channel).defaultTemplate.id)
{
    select(m_defaultID);
}

std::vector<Choice> TemplateEditor::choices() const
{
    std::vector<Choice> choices;
    for (const EmailTemplate &entry : m_store.templates(m_channel))
        choices.push_back({entry.id, entry.title});
    choices.push_back({m_templates.newID, m_templates.newEntry});
    return choices;
}

bool TemplateEditor::canRemove() const
{
    return m_selectedID != m_defaultID && m_selectedID != m_templates.newID;
}

bool TemplateEditor::isChanged() const
{
    return trimmed(draft) != trimmed(stored(m_selectedID).value_or(TemplateDraft()));
}

std::optional<TemplateDraft> TemplateEditor::stored(const QString &id) const
{
    const std::vector<EmailTemplate> all = m_store.templates(m_channel);
    const auto found = std::ranges::find(all, id, &EmailTemplate::id);
    if (found == all.end())
        return std::nullopt;
    return TemplateDraft{found->title, found->subject, found->body};
}

void TemplateEditor::select(const QString &id)
{
    m_selectedID = id;
    m_message.clear();
    const std::optional<TemplateDraft> found = stored(id);
    draft = found.value_or(TemplateDraft());
    if (!found && canRemove())
        select(m_defaultID);
}

void TemplateEditor::removeSelected()
{
    m_store.deleteTemplate(m_channel, m_selectedID);
    select(m_defaultID);
}

void TemplateEditor::save()
{
    const TemplateDraft texts = trimmed(draft);
    if (const Refusal refusal = m_templates.check(texts))
        return say(*refusal, Tint::negative);
    const EmailTemplate typed{m_selectedID, texts.title, texts.subject, texts.body};
    if (m_selectedID == m_templates.newID)
        select(m_store.createTemplate(m_channel, typed));
    else
        m_store.updateTemplate(m_channel, typed);
    say(m_templates.saved, m_templates.savedTint);
}

void TemplateEditor::say(const QString &message, Tint tint)
{
    m_message = message;
    m_messageTint = tint;
}

} // namespace quenoria
