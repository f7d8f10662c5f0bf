#include "ui/sheets/about_view.h"

#include "ui/kit/labels.h"
#include "ui/kit/symbol.h"

#include <QBoxLayout>
#include <QCoreApplication>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

const QString webSite = u"https://www.example.com"_s;

constexpr int emblemSide = 68;
constexpr int sectionSpacing = 24;

const QStringList privacyLines{
    u"Les contacts et les suivis sont enregistrés localement sur ce Mac."_s,
    u"Les SMS sont préparés dans Messages et les e-mails dans l’application de messagerie par "
    "défaut."_s,
    u"Selon les options choisies, l’utilisateur confirme l’envoi ou l’application l’automatise "
    "avec les contrôles de délai et de quota."_s,
};

QString versionLine()
{
    const QString version = QCoreApplication::applicationVersion();
    const QVariant build = QCoreApplication::instance()->property(buildNumberProperty);
    return u"Version %1 — build %2"_s.arg(version.isEmpty() ? u"7.29"_s : version,
                                          build.typeId() == QMetaType::QString ? build.toString()
                                                                               : u"7290"_s);
}

QFrame *makeDivider()
{
    auto *line = new QFrame;
    line->setFrameShape(QFrame::HLine);
    return line;
}

QLayout *makePoint(const QString &text)
{
    auto *row = new QHBoxLayout;
    row->setSpacing(8);
    row->addWidget(new SymbolView(symbol(u"checkmark.circle"_s, Tint::accent), 18), 0,
                   Qt::AlignTop);
    row->addWidget(makeLabel(text), 1);
    return row;
}

} // namespace

AboutView::AboutView(QWidget *parent) : Sheet(u"À propos de l’application"_s, {780, 680}, parent)
{
    column()->setSpacing(sectionSpacing);
    addEmblem();
    column()->addWidget(makeDivider());
    column()->addWidget(makeLabel(
        u"Quenoria permet d’organiser des contacts, de créer des modèles de SMS et d’e-mails, "
        "de préparer ou d’automatiser les envois depuis le Mac et de conserver le suivi des "
        "envois, commentaires et demandes STOP."_s));
    column()->addWidget(makeDivider());
    addCompatibility();
    column()->addWidget(makeDivider());
    addPrivacy();
    column()->addStretch();
    footer()->addWidget(makeDivider());
    addFooter();
}

void AboutView::addEmblem()
{
    auto *texts = new QVBoxLayout;
    texts->setSpacing(4);
    texts->addWidget(makeLabel(u"Quenoria v.7.29"_s, TextStyle::largeTitle));
    texts->addWidget(makeLabel(versionLine(), TextStyle::body, Tint::secondary));
    texts->addWidget(makeLabel(u"Vos messages clients et prospects, sans intermédiaire !"_s,
                               TextStyle::headline));
    auto *row = new QHBoxLayout;
    row->setSpacing(16);
    row->addWidget(new SymbolView(symbol(u"paperplane.circle.fill"_s, Tint::accent), emblemSide));
    row->addLayout(texts, 1);
    row->addWidget(makeCloseButton(), 0, Qt::AlignTop);
    header()->addLayout(row);
}

void AboutView::addCompatibility()
{
    TextLabel *value = makeLabel(u"macOS 14 ou version ultérieure"_s);
    auto *row = new QHBoxLayout;
    row->addWidget(makeLabel(u"Compatibilité"_s, TextStyle::headline));
    row->addWidget(value, 1);
    value->setAlignment(Qt::AlignTrailing);
    column()->addLayout(row);
}

void AboutView::addPrivacy()
{
    column()->addWidget(makeLabel(u"Confidentialité et fonctionnement"_s, TextStyle::headline));
    for (const QString &line : privacyLines)
        column()->addLayout(makePoint(line));
}

void AboutView::addFooter()
{
    auto *link = new WebLink(u"Visiter le site de Quenoria"_s, webSite);
    link->setFont(styledFont(TextStyle::footnote));
    footer()->addWidget(link);
}

} // namespace quenoria
