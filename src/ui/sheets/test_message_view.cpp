#include "ui/sheets/test_message_view.h"

#include "ui/channels/channel_descriptor.h"
#include "ui/kit/form.h"
#include "ui/kit/labels.h"
#include "ui/kit/length_line.h"
#include "ui/kit/status_label.h"
#include "ui/kit/text_boxes.h"
#include "ui/sheets/choice_picker.h"

#include <QBoxLayout>
#include <QLineEdit>
#include <QPushButton>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quenoria {

TestMessageView::TestMessageView(ProspectStore &store, QWidget *parent)
    : Sheet(u"Tester un message"_s, {700, 560}, parent), m_store(store),
      m_selectedID(ProspectStore::defaultMessageID),
      m_picker(new ChoicePicker(u"Modèle à tester"_s)), m_number(makeField(u"Numéro de test"_s)),
      m_preview(new PreviewBox(u"Aperçu du message"_s)),
      m_length(new LengthLine(LengthLine::Use::reading)), m_error(new StatusLabel)
{
    addHeader(windowTitle());
    auto *row = new QHBoxLayout;
    row->addWidget(makeCaption(u"Modèle à tester"_s, m_picker));
    row->addWidget(m_picker, 1);
    column()->addLayout(row);
    connect(m_picker, &ChoicePicker::picked, this, [this](const QString &id) {
        m_selectedID = id;
        refresh();
    });
    addNumber();
    addPreview();
    addBottomRow();
    refresh();
    m_number->setFocus();
    connect(&store, &ProspectStore::published, this, [this](const Change &change) {
        std::visit(Following{[this](const TemplatesChanged &templates) {
                                 if (templates.channel == smsChannel().channel)
                                     refresh();
                             },
                             Ignoring<ContactsChanged, SelectionChanged, ListReshaped,
                                      DepartmentsChanged, QuotaChanged, TestNumberChanged>()},
                   change);
    });
}

void TestMessageView::addNumber()
{
    m_number->setText(m_store.testNumber());
    connect(m_number, &QLineEdit::textChanged, &m_store, &ProspectStore::setTestNumber);
    auto *number = new QVBoxLayout;
    number->setSpacing(4);
    number->addWidget(m_number);
    number->addWidget(makeLabel(u"Le numéro choisi sera mémorisé pour le prochain test."_s,
                                TextStyle::footnote, Tint::secondary));
    column()->addLayout(number);
}

void TestMessageView::addPreview()
{
    auto *preview = new QVBoxLayout;
    preview->setSpacing(8);
    preview->addWidget(makeLabel(u"Aperçu du message"_s, TextStyle::headline));
    preview->addWidget(m_preview, 1);
    preview->addWidget(m_length);
    column()->addLayout(preview, 1);
}

void TestMessageView::addBottomRow()
{
    auto *button = new QPushButton(u"Préparer le SMS de test"_s);
    makeProminent(button);
    button->setDefault(true);
    connect(button, &QPushButton::clicked, this, &TestMessageView::prepare);
    auto *row = new QHBoxLayout;
    row->addWidget(m_error, 1);
    row->addStretch();
    row->addWidget(button);
    footer()->addLayout(row);
}

void TestMessageView::refresh()
{
    const std::vector<EmailTemplate> templates = m_store.templates(Channel::sms);
    auto shown = std::ranges::find(templates, m_selectedID, &EmailTemplate::id);
    if (shown == templates.end()) {
        shown = templates.begin();
        m_selectedID = templates.empty() ? ProspectStore::defaultMessageID : shown->id;
    }
    std::vector<Choice> choices;
    choices.reserve(templates.size());
    for (const EmailTemplate &message : templates)
        choices.push_back({message.id, message.title});
    m_picker->setChoices(choices, m_selectedID);
    const QString body = shown == templates.end() ? QString() : shown->body;
    m_preview->setPlainText(body);
    m_length->setText(body);
}

void TestMessageView::prepare()
{
    const Refusal refusal = m_store.prepareTestSMS(m_store.testNumber(), m_selectedID);
    if (!refusal)
        return accept();
    m_error->setStatus(*refusal, Tint::negative);
}

} // namespace quenoria
