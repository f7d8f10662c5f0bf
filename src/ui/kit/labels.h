#pragma once

#include "ui/kit/plain_text.h"
#include "ui/kit/theme.h"

#include <QLabel>

class QFont;

namespace quenoria {

/// The sizes of text in the product.
enum class TextStyle { largeTitle, title, headline, body, footnote };

[[nodiscard]] QFont styledFont(TextStyle style);

/// Shows a text as it was written, and as much of it as leaves room for the rest of a dialog.
class TextLabel : public QLabel {
    Q_OBJECT

public:
    explicit TextLabel(const QString &text = {}, TextRoom room = paragraphRoom);

    void setText(const QString &text);
    void setRoom(TextRoom room) { m_room = room; } ///< of the texts to come

private:
    TextRoom m_room;
};

/// A label that wraps, in the application's font.
[[nodiscard]] TextLabel *makeLabel(const QString &text, TextStyle style = TextStyle::body,
                                   Tint tint = Tint::text);

/// What stands before a control; its mnemonic, if any, moves to the control.
[[nodiscard]] QLabel *makeCaption(const QString &text, QWidget *control);

/// A link to a page of the product's own, opened in the browser. The one text with markup.
class WebLink : public QLabel {
    Q_OBJECT

public:
    WebLink(const QString &text, const QString &address);

protected:
    void changeEvent(QEvent *event) override;

private:
    void refresh();

    QString m_text;
    QString m_address;
};

} // namespace quenoria
