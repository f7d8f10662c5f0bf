#pragma once

#include <QPlainTextEdit>

namespace quenoria {

/// A text of several lines that can be read, scrolled and copied, on a faint background.
class PreviewBox : public QPlainTextEdit {
    Q_OBJECT

public:
    explicit PreviewBox(const QString &accessibleName, QWidget *parent = nullptr);
};

/// For such a box: a title with the number of lines, then the lines, of which a thousand are shown
/// and the others counted. Nothing when there is none.
[[nodiscard]] QStringList listedSection(const QString &title, const QStringList &lines);

/// A field of several lines. Tab moves on instead of typing a tabulator.
class TextBox : public QPlainTextEdit {
    Q_OBJECT

public:
    explicit TextBox(const QString &accessibleName, QWidget *parent = nullptr);

    /// The text to the character: toPlainText() would turn no-break spaces into plain ones, which
    /// French puts before "!" and "?".
    QString text() const;

    /// Puts the text in the place of what is there, as typing it would: it can be undone.
    void replaceText(const QString &text);

    /// Shows a text without announcing it as a change; leaves the cursor alone if it is the same.
    void setText(const QString &text);
};

} // namespace quenoria
