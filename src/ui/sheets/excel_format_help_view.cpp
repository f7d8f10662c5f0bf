#include "ui/sheets/excel_format_help_view.h"

#include "platform/platform.h"
#include "ui/kit/labels.h"
#include "ui/kit/status_label.h"
#include "ui/kit/symbol.h"

#include <QBoxLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QTableWidget>

#include <array>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

constexpr int rowPadding = 16;
constexpr int rowsInSight = 3; ///< at least

// Column, whether it is required, expected format.
const std::array rows{
    std::array{u"Département"_s, u"Recommandé"_s, u"Nom ou code libre : Paris, 75, Gironde, 33…"_s},
    std::array{u"Nom de l’entreprise"_s, u"Oui"_s, u"Texte libre"_s},
    std::array{u"Adresse e-mail"_s, u"Mobile ou mail"_s, u"contact@example.com"_s},
    std::array{u"Téléphone mobile"_s, u"Mobile ou mail"_s, u"06 12 34 56 78 ou 07 12 34 56 78"_s},
    std::array{u"Commune"_s, u"Recommandé"_s, u"Texte libre"_s},
    std::array{u"Code postal"_s, u"Recommandé"_s, u"5 chiffres"_s},
    std::array{u"Métier"_s, u"Facultatif"_s, u"Laisser vide si non renseigné"_s},
};

const QStringList rules{
    u"Une seule ligne d’en-têtes, puis un contact par ligne."_s,
    u"Conservez la colonne « Nom de l’entreprise » et au moins une colonne Mobile ou Adresse "
    "e-mail."_s,
    u"Les mobiles français 06/07 et les adresses e-mail valides sont reconnus."_s,
    u"Les doublons et les lignes sans mobile ni e-mail sont automatiquement ignorés."_s,
};

const QStringList exampleRow{u"Paris"_s,  u"ENTREPRISE EXEMPLE"_s,  u"Paris"_s,
                             u"75001"_s,  u"contact@example.com"_s, u"06 12 34 56 78"_s,
                             u"Artisan"_s};

QTableWidget *makeTable()
{
    auto *table = new QTableWidget(int(rows.size()), int(rows.front().size()));
    const int rowHeight = table->fontMetrics().height() + rowPadding;
    table->setAccessibleName(u"Colonnes du classeur"_s);
    table->setHorizontalHeaderLabels({u"Colonne"_s, u"Obligatoire"_s, u"Format attendu"_s});
    table->horizontalHeader()->setDefaultAlignment(Qt::AlignLeading | Qt::AlignVCenter);
    table->horizontalHeader()->setStretchLastSection(true);
    table->horizontalHeader()->setHighlightSections(false);
    table->horizontalHeader()->setFixedHeight(rowHeight);
    table->verticalHeader()->hide();
    table->verticalHeader()->setDefaultSectionSize(rowHeight);
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->setSelectionMode(QAbstractItemView::NoSelection);
    table->setTabKeyNavigation(false);
    table->setShowGrid(false);
    for (std::size_t y = 0; y < rows.size(); ++y) {
        for (std::size_t x = 0; x < rows[y].size(); ++x)
            table->setItem(int(y), int(x), new QTableWidgetItem(rows[y][x]));
    }
    table->resizeColumnsToContents();
    const int frame = 2 * table->frameWidth();
    table->setMinimumHeight(rowHeight * (1 + rowsInSight) + frame);
    table->setMaximumHeight(rowHeight * int(1 + rows.size()) + frame);
    return table;
}

} // namespace

ExcelFormatHelpView::ExcelFormatHelpView(const Platform &platform, QWidget *parent)
    : Sheet(u"Format du fichier Excel attendu"_s, {760, 640}, parent),
      m_export(platform.panels, platform.resources, platform.files), m_result(new StatusLabel)
{
    addHeader(windowTitle(), u"L’application accepte les classeurs Excel au format .xlsx."_s);
    column()->addWidget(makeTable(), 1);
    addTexts();
    column()->addStretch();
    addExport();
}

void ExcelFormatHelpView::addTexts()
{
    QStringList bullets;
    for (const QString &rule : rules)
        bullets << u"•  "_s + rule;
    addSection(u"Règles à respecter"_s, bullets);
    addSection(u"Exemple d’une ligne"_s, {exampleRow.join(u" | "_s)});
    column()->addWidget(makeLabel(u"Le modèle contient également une feuille « Mode d’emploi »."_s,
                                  TextStyle::body, Tint::secondary));
}

void ExcelFormatHelpView::addSection(const QString &title, const QStringList &lines)
{
    auto *section = new QVBoxLayout;
    section->setSpacing(4);
    section->addWidget(makeLabel(title, TextStyle::headline));
    for (const QString &line : lines)
        section->addWidget(makeLabel(line));
    column()->addLayout(section);
}

void ExcelFormatHelpView::addExport()
{
    auto *button = new QPushButton(symbol(u"square.and.arrow.down"_s, Tint::onAccent),
                                   u"Enregistrer le modèle Excel…"_s);
    makeProminent(button);
    button->setDefault(true);
    button->setFocus();
    auto *row = new QHBoxLayout;
    row->addWidget(button);
    row->addWidget(m_result, 1);
    row->addStretch();
    footer()->addLayout(row);
    connect(button, &QPushButton::clicked, this, [this] {
        m_export.saveTemplate();
        const bool failed = m_export.resultIsError();
        m_result->setStatus(m_export.resultMessage(), failed ? Tint::negative : Tint::positive,
                            failed ? u"exclamationmark.triangle.fill"_s
                                   : u"checkmark.circle.fill"_s);
    });
}

} // namespace quenoria
