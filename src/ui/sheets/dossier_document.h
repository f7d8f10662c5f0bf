#pragma once

#include "ui/sheets/dossier_text.h"

class QTextDocument;

namespace quenoria {

/// Writes the sections as plain paragraphs with titles; nothing in them is read as markup.
void writeDossier(QTextDocument &document, const std::vector<DossierSection> &sections);

/// The first and the last line of every page of a printed dossier.
struct PageTexts {
    QString title;
    QString footer; ///< left of the page's number
};

/// An A4 document with numbered pages.
[[nodiscard]] QByteArray pdfOf(const QTextDocument &document, const PageTexts &texts);

} // namespace quenoria
