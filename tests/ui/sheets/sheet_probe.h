#pragma once

#include "store/store_fixture.h"
#include "ui/kit/status_label.h"

#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

namespace quenoria::test {

using namespace Qt::StringLiterals;

/// Works a shown sheet as its user does: controls are found by what a screen reader calls them.
class Probe {
public:
    explicit Probe(QDialog &sheet) : m_sheet(sheet)
    {
        m_sheet.show();
        QApplication::setActiveWindow(&m_sheet); // shortcuts only work in the active window
    }

    QLineEdit *field(const QString &name) const { return named<QLineEdit>(name); }
    QComboBox *picker(const QString &name) const { return named<QComboBox>(name); }

    void type(const QString &name, const QString &text) const { field(name)->setText(text); }

    void choose(const QString &name, const QString &row) const
    {
        QComboBox *box = picker(name);
        box->setCurrentText(row);
        Q_EMIT box->activated(box->findText(row));
    }

    QPushButton *button(const QString &text) const
    {
        for (auto *candidate : m_sheet.findChildren<QPushButton *>()) {
            if (candidate->text() == text && candidate->window() == &m_sheet)
                return candidate;
        }
        qFatal("no button %s", qUtf8Printable(text));
    }

    void press(const QString &text) const { button(text)->click(); }

    /// Answers the question that stands over the sheet; false when there is none.
    bool answer(const QString &text) const
    {
        for (auto *box : m_sheet.findChildren<QMessageBox *>()) {
            for (QAbstractButton *choice : box->buttons()) {
                if (!box->isVisible() || choice->text() != text)
                    continue;
                choice->click();
                return true;
            }
        }
        return false;
    }

    /// The outcome that can be seen now, or an empty text.
    QString status() const
    {
        const auto *label = m_sheet.findChild<StatusLabel *>();
        return label->isVisible() ? label->text() : QString();
    }

    QPalette::ColorRole statusRole() const
    {
        for (const auto *label : m_sheet.findChild<StatusLabel *>()->findChildren<QLabel *>())
            return label->foregroundRole();
        return QPalette::NoRole;
    }

    /// Whether the text is in a label that can be seen, whole or as a part.
    bool shows(const QString &text) const
    {
        return std::ranges::any_of(m_sheet.findChildren<QLabel *>(), [&](const QLabel *label) {
            return label->isVisible() && label->text().contains(text);
        });
    }

private:
    template <typename Control>
    Control *named(const QString &name) const
    {
        for (auto *candidate : m_sheet.findChildren<Control *>()) {
            if (candidate->accessibleName() == name)
                return candidate;
        }
        qFatal("no control %s", qUtf8Printable(name));
    }

    QDialog &m_sheet;
};

using SheetTest = StoreTest;

} // namespace quenoria::test
