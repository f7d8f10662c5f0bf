#include "ui/sheets/template_editor.h"

#include "store/prospect_store.h"

#include <algorithm>

namespace quenoria {

namespace {

TemplateDraft trimmed(const TemplateDraft &draft)
{
    return {draft.title.trimmed(), draft.subject.trimmed(), draft.body.trimmed()};
}

} // namespace

TemplateEditor::TemplateEditor(ProspectStore &store, const ChannelTemplates &templates)
    : m_store(store), m_templates(templates)
{
    select(templates.defaultID);
}

std::vector<Choice> TemplateEditor::choices() const
{
    std::vector<Choice> choices;
    for (const EmailTemplate &entry : m_templates.all(m_store))
        choices.push_back({entry.id, entry.title});
    choices.push_back({m_templates.newID, m_templates.newEntry});
    return choices;
}

bool TemplateEditor::canRemove() const
{
    return m_selectedID != m_templates.defaultID && m_selectedID != m_templates.newID;
}

bool TemplateEditor::isChanged() const
{
    return trimmed(draft) != trimmed(stored(m_selectedID).value_or(TemplateDraft()));
}

std::optional<TemplateDraft> TemplateEditor::stored(const QString &id) const
{
    const std::vector<EmailTemplate> all = m_templates.all(m_store);
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
        select(m_templates.defaultID);
}

void TemplateEditor::removeSelected()
{
    (m_store.*m_templates.remove)(m_selectedID);
    select(m_templates.defaultID);
}

void TemplateEditor::save()
{
    const TemplateDraft texts = trimmed(draft);
    if (const Refusal refusal = m_templates.check(texts))
        return say(*refusal, Tint::negative);
    if (m_selectedID == m_templates.newID)
        select(m_templates.create(m_store, texts));
    else
        m_templates.update(m_store, m_selectedID, texts);
    say(m_templates.saved, m_templates.savedTint);
}

void TemplateEditor::say(const QString &message, Tint tint)
{
    m_message = message;
    m_messageTint = tint;
}

} // namespace quenoria
