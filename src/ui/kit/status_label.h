#pragma once

#include "ui/kit/theme.h"

#include <QWidget>

namespace quenoria {

class SymbolView;
class TextLabel;

/// One line of outcome under a form: a symbol and a text in the colour of what happened. It takes
/// no room while it has nothing to say.
class StatusLabel : public QWidget {
    Q_OBJECT

public:
    explicit StatusLabel(QWidget *parent = nullptr);

    /// An empty text hides the label; without a symbol's name the text stands alone. The text can
    /// be selected, since it may quote an error that the user wants to search for.
    void setStatus(const QString &text, Tint tint, const QString &symbolName = {});
    QString text() const;

private:
    SymbolView *m_symbol;
    TextLabel *m_text;
};

} // namespace quenoria
