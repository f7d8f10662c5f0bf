#include "ui/kit/sheet.h"

#include "ui/kit/labels.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

constexpr int margin = 24;
constexpr int spacing = 16;

} // namespace

Sheet::Sheet(const QString &title, QSize size, QWidget *parent)
    : QDialog(parent), m_column(new QVBoxLayout(this))
{
    setWindowTitle(title);
    setWindowModality(Qt::WindowModal);
    m_column->setContentsMargins(margin, margin, margin, margin);
    m_column->setSpacing(spacing);
    resize(size);
}

void Sheet::present()
{
    setAttribute(Qt::WA_DeleteOnClose);
    open();
}

void Sheet::addHeader(const QString &title, const QString &note)
{
    auto *texts = new QVBoxLayout;
    texts->setSpacing(4);
    texts->addWidget(makeLabel(title, TextStyle::title));
    if (!note.isEmpty())
        texts->addWidget(makeLabel(note, TextStyle::body, Tint::secondary));
    auto *row = new QHBoxLayout;
    row->setSpacing(spacing);
    row->addLayout(texts, 1);
    row->addWidget(makeCloseButton(), 0, Qt::AlignTop);
    m_column->addLayout(row);
}

void Sheet::addTitle(const QString &title)
{
    m_column->addWidget(makeLabel(title, TextStyle::title));
}

QPushButton *Sheet::addConfirmRow(const QString &confirm)
{
    auto *cancel = new QPushButton(u"Annuler"_s);
    auto *button = new QPushButton(confirm);
    connect(cancel, &QPushButton::clicked, this, &Sheet::reject);
    makeProminent(button);
    button->setDefault(true);
    auto *row = new QHBoxLayout;
    row->addStretch();
    row->addWidget(cancel);
    row->addWidget(button);
    m_column->addLayout(row);
    return button;
}

QPushButton *Sheet::makeCloseButton()
{
    auto *close = new QPushButton(u"Fermer"_s);
    connect(close, &QPushButton::clicked, this, &Sheet::reject);
    return close;
}

} // namespace quenoria
