#pragma once

#include "ui/kit/button_role.h"

#include <QDialog>
#include <QPointer>

#include <functional>

class QBoxLayout;

namespace quenoria {

class MiddleArea;

/// A window-modal dialog over the main window. The close button, Escape and the window's own
/// close all end in reject(), so that a sheet has one way of being left.
///
/// Header and footer are always in sight; where the screen is too small for what lies between
/// them, that scrolls.
class Sheet : public QDialog {
    Q_OBJECT

public:
    /// The size is what the sheet opens with, if its texts need no more and the screen has as much.
    Sheet(const QString &title, QSize size, QWidget *parent);

    /// Shows the sheet over its window, and destroys it once it has been left.
    void present();

    /// Whether something was typed that leaving would lose.
    [[nodiscard]] virtual bool hasUnsavedInput() const { return false; }

    void setVisible(bool visible) override;

    /// Leaves the sheet, once the user has said what becomes of unsaved input.
    void reject() override;

    /// Leaves the sheet and what is typed in it, as the user has chosen elsewhere.
    void abandon() { QDialog::reject(); }

protected:
    /// Goes on at once, or once the unsaved input is saved or given up, as the user chooses. It is
    /// not when he calls it off or when the input was refused.
    void settleInput(const std::function<void()> &goOn);

    /// Saves what is typed, as the sheet's own button does.
    virtual void saveInput() {}

    /// Column of the parts between the header and the footer.
    QBoxLayout *column() const { return m_column; }

    /// Column of what stands at the end: outcomes, and the row of buttons.
    QBoxLayout *footer() const { return m_footer; }

    /// Column of the title and what else has to stay in sight above the parts.
    QBoxLayout *header() const { return m_header; }

    /// Title in bold with a note under it (none when empty) and "Fermer" at the right.
    void addHeader(const QString &title, const QString &note = {});

    /// Title in bold alone, for a sheet that ends in "Annuler" and its confirmation.
    void addTitle(const QString &title);

    /// Row aligned right: "Annuler", which rejects, and the prominent default button, returned.
    QPushButton *addConfirmRow(const QString &confirm);

    /// "Fermer", which rejects, for a sheet with a header of its own.
    QPushButton *makeCloseButton();

private:
    void fitIntoScreen();
    int leastHeight(int width) const;

    QSize m_preferredSize;
    QBoxLayout *m_header;
    MiddleArea *m_middle;
    QBoxLayout *m_column;
    QBoxLayout *m_footer;
    QPointer<QWidget> m_question; ///< what becomes of the input
};

} // namespace quenoria
