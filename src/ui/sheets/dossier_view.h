#pragma once

#include "platform/platform.h"
#include "store/contact_dossier.h"
#include "ui/kit/sheet.h"

class QCheckBox;
class QStackedWidget;
class QTextEdit;

namespace quenoria {

class StatusLabel;

/// Everything that is known of one contact, on one page: to read, to hand over, or to erase.
class DossierView : public Sheet {
    Q_OBJECT

public:
    DossierView(const Platform &platform, ProspectStore &store, const QString &contactId,
                QWidget *parent);

private:
    void addParts();
    void addFooter();
    void follow(const Change &change);
    void refresh();
    void save();
    void askToErase();
    void erase();

    Platform m_platform;
    ProspectStore &m_store;
    QString m_id;
    std::optional<ContactDossier> m_dossier; ///< nothing once the contact is gone
    QStackedWidget *m_pages;
    QTextEdit *m_text;
    QCheckBox *m_keepOut;
    StatusLabel *m_status;
    QPushButton *m_erase;
    QPushButton *m_save;
};

} // namespace quenoria
