#include "ui/queue/message_panel.h"

#include "ui/kit/labels.h"
#include "ui/kit/length_line.h"
#include "ui/kit/status_label.h"
#include "ui/kit/text_boxes.h"

#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

constexpr int lineSpacing = 4;
constexpr int previewGap = 12;

} // namespace

MessagePanel::MessagePanel(Length length, QWidget *parent)
    : QWidget(parent), m_name(makeLabel({}, TextStyle::headline)), m_address(makeLabel({})),
      m_heading(makeLabel({}, TextStyle::body, Tint::secondary)), m_attachment(new StatusLabel),
      m_preview(new PreviewBox(u"Aperçu du message"_s)),
      m_length(new LengthLine(LengthLine::Use::reading))
{
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins({});
    column->setSpacing(lineSpacing);
    column->addWidget(m_name);
    column->addWidget(m_address);
    column->addWidget(m_heading);
    column->addWidget(m_attachment);
    column->addSpacing(previewGap);
    column->addWidget(m_preview, 1);
    column->addWidget(m_length);
    m_length->setVisible(length == Length::told);
    for (TextLabel *label : {m_address, m_heading})
        label->setRoom(headingRoom);
    for (TextLabel *label : {m_name, m_address})
        label->setTextInteractionFlags(Qt::TextSelectableByMouse);
}

void MessagePanel::setMessage(const QString &name, const QueuedMessage &message,
                              const std::optional<QString> &attachment)
{
    m_name->setText(name);
    m_address->setText(message.address);
    m_heading->setText(message.heading);
    m_attachment->setStatus(attachment ? u"Fichier joint : "_s + *attachment : QString(),
                            Tint::text, u"paperclip"_s);
    m_length->setText(message.body);
    // Setting the same text anew would lose what the user has selected in it.
    if (m_preview->toPlainText() != message.body)
        m_preview->setPlainText(message.body);
}

} // namespace quenoria
