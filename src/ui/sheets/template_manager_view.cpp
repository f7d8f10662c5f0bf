#include "ui/sheets/template_manager_view.h"

#include "model/blanks.h"
#include "ui/kit/form.h"
#include "ui/kit/labels.h"
#include "ui/kit/length_line.h"
#include "ui/kit/status_label.h"
#include "ui/kit/symbol.h"
#include "ui/kit/text_boxes.h"

#include <QBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

/// Leaves the cursor where it is when the text is already there.
void showText(QLineEdit *field, const QString &text)
{
    if (field->text() != text)
        field->setText(text);
}

} // namespace

TemplateManagerView::TemplateManagerView(ProspectStore &store, const ChannelDescriptor &channel,
                                         QWidget *parent)
    : Sheet(channel.templates.heading, channel.templates.size, parent), m_channel(channel),
      m_templates(channel.templates), m_editor(store, channel),
      m_picker(new ChoicePicker(u"Modèle"_s)),
      m_remove(new QPushButton(symbol(u"trash"_s, Tint::negative), u"Supprimer"_s)),
      m_title(makeField(m_templates.titleField)), m_subject(makeField(m_templates.subjectField)),
      m_body(new TextBox(m_templates.bodyLabel)),
      m_length(new LengthLine(LengthLine::Use::editing)), m_blanks(new StatusLabel),
      m_message(new StatusLabel)
{
    setWindowRole(m_templates.role);
    addHeader(m_templates.heading, m_templates.note);
    addSelectionRow();
    addFields();
    addBottomRow();
    refresh();
    m_picker->setFocus();
    connect(&store, &ProspectStore::published, this, [this](const Change &change) {
        std::visit(Following{[this](const TemplatesChanged &templates) {
                                 if (templates.channel == m_channel.channel)
                                     refresh();
                             },
                             Ignoring<ContactsChanged, SelectionChanged, ListReshaped,
                                      DepartmentsChanged, QuotaChanged, TestNumberChanged>()},
                   change);
    });
}

void TemplateManagerView::addSelectionRow()
{
    auto *add = new QPushButton(symbol(u"plus"_s), u"Nouveau"_s);
    makeDestructive(m_remove);
    auto *row = new QHBoxLayout;
    row->addWidget(makeCaption(u"Modèle"_s, m_picker));
    row->addWidget(m_picker, 1);
    row->addWidget(add);
    row->addWidget(m_remove);
    column()->addLayout(row);
    connect(m_picker, &ChoicePicker::picked, this, [this](const QString &id) {
        settleInput([this, id] {
            m_editor.select(id);
            refresh();
        });
        refresh(); // until then the picker shows what is being edited
    });
    connect(add, &QPushButton::clicked, this, [this] {
        settleInput([this] {
            m_editor.startNew();
            refresh();
            m_title->setFocus();
        });
    });
    connect(m_remove, &QPushButton::clicked, this, [this] {
        m_editor.removeSelected();
        refresh();
    });
}

void TemplateManagerView::addFields()
{
    column()->addWidget(m_title);
    column()->addWidget(m_subject);
    m_subject->setVisible(!m_templates.subjectField.isEmpty());
    auto *body = new QVBoxLayout;
    body->setSpacing(8);
    body->addWidget(makeLabel(m_templates.bodyLabel, TextStyle::headline));
    body->addWidget(m_body, 1);
    body->addWidget(m_length);
    body->addWidget(m_blanks);
    m_length->setVisible(m_channel.countsCharacters);
    connect(m_length, &LengthLine::replacementChosen, m_body, &TextBox::replaceText);
    column()->addLayout(body, 1);
    connect(m_title, &QLineEdit::textChanged, this,
            [this](const QString &text) { m_editor.draft.title = text; });
    connect(m_subject, &QLineEdit::textChanged, this, [this](const QString &text) {
        m_editor.draft.subject = text;
        refreshBlanks();
    });
    connect(m_body, &TextBox::textChanged, this, [this] {
        m_editor.draft.body = m_body->text();
        refreshLength();
        refreshBlanks();
    });
}

void TemplateManagerView::addBottomRow()
{
    auto *save = new QPushButton(m_templates.saveButton);
    makeProminent(save);
    save->setDefault(true);
    save->setToolTip(tipText(u"Ctrl+Entrée"_s));
    auto *row = new QHBoxLayout;
    row->setSpacing(16);
    row->addWidget(m_message, 1);
    row->addStretch();
    row->addWidget(save);
    footer()->addLayout(row);
    connect(save, &QPushButton::clicked, this, &TemplateManagerView::saveInput);
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
        auto *shortcut = new QShortcut(Qt::CTRL | key, this);
        connect(shortcut, &QShortcut::activated, save, &QPushButton::click);
    }
}

void TemplateManagerView::refreshBlanks()
{
    const TemplateDraft &draft = m_editor.draft;
    const QStringList blanks = blanksIn(draft.subject + u'\n' + draft.body);
    m_blanks->setStatus(
        blanks.isEmpty() ? QString() : u"À compléter avant d’envoyer : "_s + blanks.join(u", "_s),
        Tint::accent, u"pencil"_s);
}

void TemplateManagerView::saveInput()
{
    m_editor.save();
    refresh();
}

void TemplateManagerView::refresh()
{
    m_picker->setChoices(m_editor.choices(), m_editor.selectedID(),
                         ChoicePicker::LastRow::setApart);
    m_remove->setEnabled(m_editor.canRemove());
    const TemplateDraft draft = m_editor.draft; // the fields write back what they are shown
    showText(m_title, draft.title);
    showText(m_subject, draft.subject);
    m_body->setText(draft.body);
    refreshLength();
    refreshBlanks();
    m_message->setStatus(m_editor.message(), m_editor.messageTint());
}

void TemplateManagerView::refreshLength() { m_length->setText(m_editor.draft.body); }

} // namespace quenoria
