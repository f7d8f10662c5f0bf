#include "ui/window/contact_panel.h"

#include "ui/kit/labels.h"
#include "ui/kit/screen_room.h"
#include "ui/table/contact_table_model.h"
#include "ui/window/panel_field.h"

#include <QScrollArea>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

constexpr int leastWidth = 320;
constexpr int widthInCharacters = 36;
constexpr int leastLines = 2; ///< in sight under the title
constexpr double mostOfScreen = 0.4;
constexpr int margin = 16;
constexpr int gap = 10;

/// Those of the contact, what it is sent first; its name is the title.
std::vector<int> panelColumns(int count)
{
    std::vector<int> columns;
    for (int column = 0; column < count; ++column) {
        const ContactColumn &each = contactColumns()[std::size_t(column)];
        if (!each.keptByTable && !each.namesContact)
            columns.push_back(column);
    }
    std::stable_partition(columns.begin(), columns.end(), [](int column) {
        return contactColumns()[std::size_t(column)].followsSwitches;
    });
    return columns;
}

} // namespace

const QString ContactPanel::preference = u"FenetrePrincipaleFiche"_s;

ContactPanel::ContactPanel(ContactTableModel &model, QWidget *parent)
    : QWidget(parent), m_model(model), m_title(makeLabel({}, TextStyle::headline)),
      m_contents(new QWidget), m_area(new QScrollArea)
{
    setAccessibleName(u"Fiche"_s);
    build();
    connect(&model, &ContactTableModel::aboutToReplaceRows, this, &ContactPanel::keepTypedText);
    connect(&model, &ContactTableModel::dataChanged, this,
            [this](const QModelIndex &first, const QModelIndex &last) {
                if (m_current.row() >= first.row() && m_current.row() <= last.row())
                    refresh();
            });
    refresh();
}

void ContactPanel::build()
{
    auto *fields = new QVBoxLayout(m_contents);
    fields->setContentsMargins(margin, 0, margin, margin);
    fields->setSpacing(gap);
    for (const int column : panelColumns(m_model.columnCount())) {
        auto *field = new PanelField(m_model, column);
        connect(field, &PanelField::actionRequested, this, [this](RowAction action) {
            if (m_current.isValid())
                Q_EMIT actionRequested(action, m_model.contacts().at(m_current.row()).id);
        });
        fields->addWidget(field);
        m_fields << field;
    }
    fields->addStretch();
    m_area->setWidget(m_contents);
    m_area->setWidgetResizable(true);
    m_area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_area->setFrameShape(QFrame::NoFrame);
    m_area->setFocusPolicy(Qt::NoFocus);
    m_title->setMargin(margin);
    m_title->setAlignment(Qt::AlignTop);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins({});
    column->setSpacing(0);
    column->addWidget(m_title);
    column->addWidget(m_area, 1);
}

/// On a small screen with large letters, it leaves the table its part.
void ContactPanel::showEvent(QShowEvent *event)
{
    const int usual = qMax(leastWidth, widthInCharacters * fontMetrics().averageCharWidth());
    setFixedWidth(qMin(usual, int(screenRoom(*this).width() * mostOfScreen)));
    QWidget::showEvent(event);
}

QSize ContactPanel::minimumSizeHint() const
{
    return {minimumWidth(),
            m_title->heightForWidth(width()) + leastLines * fontMetrics().lineSpacing()};
}

void ContactPanel::follow(const QModelIndex &current)
{
    keepTypedText();
    m_current = current;
    refresh();
}

void ContactPanel::refresh()
{
    m_area->setVisible(m_current.isValid());
    if (!m_current.isValid())
        return m_title->setText(m_model.contacts().total() == 0
                                    ? u"La fiche du contact choisi s’affichera ici."_s
                                    : u"Choisissez un contact dans la liste."_s);
    m_title->setText(m_model.contacts().at(m_current.row()).label);
    for (PanelField *field : m_fields)
        field->follow(m_current);
}

void ContactPanel::keepTypedText()
{
    for (PanelField *field : m_fields)
        field->keepTypedText();
}

void ContactPanel::enter()
{
    const auto children = m_contents->findChildren<QWidget *>();
    const auto takesKeys = [](const QWidget *widget) {
        return widget->focusPolicy() & Qt::TabFocus && widget->isEnabled() && widget->isVisible();
    };
    if (const auto first = std::ranges::find_if(children, takesKeys); first != children.end())
        (*first)->setFocus(Qt::ShortcutFocusReason);
}

} // namespace quenoria
