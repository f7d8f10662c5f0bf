#pragma once

#include <QWidget>

class QLabel;
class QPushButton;

namespace quenoria {

/// What a text costs as SMS: "2 SMS · 187 caractères · « ’ » impose l’écriture longue", a warning
/// for a very long one, and a button that offers plain characters where the text can be edited.
class LengthLine : public QWidget {
    Q_OBJECT

public:
    enum class Use { reading, editing };

    explicit LengthLine(Use use, QWidget *parent = nullptr);

    void setText(const QString &text);

Q_SIGNALS:
    /// The user wants this text in the place of the one shown.
    void replacementChosen(const QString &text);

private:
    Use m_use;
    QString m_text;
    QLabel *m_parts;
    QLabel *m_count;
    QLabel *m_reason;
    QLabel *m_warning;
    QPushButton *m_replace;
};

} // namespace quenoria
