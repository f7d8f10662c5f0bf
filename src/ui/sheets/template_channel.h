#pragma once

#include "store/prospect_store.h"
#include "ui/kit/theme.h"

#include <QSize>

namespace quenoria {

/// What is typed of a template; an SMS has no subject.
struct TemplateDraft {
    QString title;
    QString subject;
    QString body;
    bool operator==(const TemplateDraft &) const = default;
};

/// All that sets the SMS templates and the e-mail templates apart.
struct TemplateChannel {
    QString defaultID;
    QString newID; ///< stands in the picker for a template not created yet

    // The store's side.
    Channel channel;
    std::vector<EmailTemplate> (*all)(const ProspectStore &store);
    QString (*create)(ProspectStore &store, const TemplateDraft &draft); ///< the new id
    void (*update)(ProspectStore &store, const QString &id, const TemplateDraft &draft);
    void (*remove)(ProspectStore &store, const QString &id);
    Refusal (*check)(const TemplateDraft &trimmed); ///< what is missing

    // The sheet's side.
    QSize size;
    QString heading;
    QString note;
    QString newEntry;
    QString titleField;
    QString subjectField; ///< empty: no subject
    QString bodyLabel;
    QString saveButton;
    QString saved;
    Tint savedTint;
    bool countsCharacters;
};

[[nodiscard]] const TemplateChannel &smsTemplateChannel();
[[nodiscard]] const TemplateChannel &emailTemplateChannel();

} // namespace quenoria
