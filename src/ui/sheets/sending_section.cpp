#include "ui/sheets/sending_section.h"

#include "ui/kit/labels.h"

#include <QVBoxLayout>

namespace quenoria {

namespace {

constexpr int padding = 16;
constexpr int spacing = 12;

} // namespace

SendingSection::SendingSection(const QString &heading, QWidget *parent)
    : QFrame(parent), m_column(new QVBoxLayout(this))
{
    setFrameShape(QFrame::StyledPanel);
    setAccessibleName(heading);
    m_column->setContentsMargins(padding, padding, padding, padding);
    m_column->setSpacing(spacing);
    m_column->addWidget(makeLabel(heading, TextStyle::headline));
}

} // namespace quenoria
