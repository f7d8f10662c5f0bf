#pragma once

#include "ui/channels/channel_descriptor.h"

#include <QWidget>

namespace quenoria {

class LengthLine;
class PreviewBox;
class StatusLabel;
class TextLabel;

/// One contact of the queue, with the message and the file that it is about to get.
class MessagePanel : public QWidget {
    Q_OBJECT

public:
    enum class Length { silent, told };

    /// Of an SMS the length is told, since it is what each contact costs.
    explicit MessagePanel(Length length, QWidget *parent = nullptr);

    void setMessage(const QString &name, const QueuedMessage &message,
                    const std::optional<QString> &attachment);

private:
    TextLabel *m_name;
    TextLabel *m_address;
    TextLabel *m_heading;
    StatusLabel *m_attachment;
    PreviewBox *m_preview;
    LengthLine *m_length;
};

} // namespace quenoria
