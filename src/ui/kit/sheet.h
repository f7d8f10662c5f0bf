#pragma once

#include "ui/kit/button_role.h"

#include <QDialog>

class QBoxLayout;

namespace quenoria {

/// A window-modal dialog over the main window. The close button, Escape and the window's own
/// close all end in reject(), so that a sheet has one way of being left.
class Sheet : public QDialog {
    Q_OBJECT

public:
    /// The size is what the sheet opens with; it may grow and, while its texts fit, shrink.
    Sheet(const QString &title, QSize size, QWidget *parent);

    /// Shows the sheet over its window, and destroys it once it has been left.
    void present();

protected:
    /// Column of the sheet's parts, with the sheet's margins and spacing.
    QBoxLayout *column() const { return m_column; }

    /// Title in bold with a note under it (none when empty) and "Fermer" at the right.
    void addHeader(const QString &title, const QString &note = {});

    /// Title in bold alone, for a sheet that ends in "Annuler" and its confirmation.
    void addTitle(const QString &title);

    /// Row aligned right: "Annuler", which rejects, and the prominent default button, returned.
    QPushButton *addConfirmRow(const QString &confirm);

    /// "Fermer", which rejects, for a sheet with a header of its own.
    QPushButton *makeCloseButton();

private:
    QBoxLayout *m_column;
};

} // namespace quenoria
